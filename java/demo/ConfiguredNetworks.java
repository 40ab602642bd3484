package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.util.List;
import java.util.Optional;

/** The networks of the supplicant's configuration. */
final class ConfiguredNetworks {
    private final List<String> names;

    private ConfiguredNetworks(List<String> names) {
        this.names = names;
    }

    static ConfiguredNetworks read(String iface) throws Stop {
        String[] names = BWifiPlatformService.getNetworkDatabaseSsids0(iface);
        if (names == null)
            throw new Stop("the configured networks cannot be read; see whether the supplicant"
                    + " answers: wpa_cli -i %s list_networks", iface);
        return new ConfiguredNetworks(List.of(names));
    }

    void print(PrintStream out) {
        out.println("Configured networks:" + (names.isEmpty() ? " none" : ""));
        for (String name : names)
            out.println("  " + shown(name));
    }

    /** The library's name of the network whose SSID is shown like this. */
    Optional<String> named(String ssid) {
        return names.stream().filter(name -> shown(name).equals(ssid)).findFirst();
    }

    private static String shown(String name) {
        return Ssid.fromLibrary(name).toString();
    }
}
