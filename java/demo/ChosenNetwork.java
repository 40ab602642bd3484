package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.util.Optional;

/** The network to connect to: configured already, or added and removed again by closing. */
final class ChosenNetwork implements AutoCloseable {
    private static final int KEY_MANAGEMENT_NONE = 0x1;

    /** What the library calls it. */
    final String name;

    private final Options options;
    private final boolean isAdded;
    private final PrintStream out;

    private ChosenNetwork(String name, Options options, boolean isAdded, PrintStream out) {
        this.name = name;
        this.options = options;
        this.isAdded = isAdded;
        this.out = out;
    }

    static ChosenNetwork open(Options options, AccessPoints inRange, PrintStream out) throws Stop {
        Optional<String> known = ConfiguredNetworks.read(options.iface).named(options.ssid);
        if (known.isPresent())
            out.println(options.ssid + " is configured already.");
        else
            add(options, inRange, out);
        return new ChosenNetwork(known.orElse(options.ssid), options, known.isEmpty(), out);
    }

    /** Connecting to one network disables all others, so each is enabled before anything is saved. */
    @Override
    public void close() throws Stop {
        if (options.keep)
            return;
        boolean isUndone = BWifiPlatformService.roamNetworks0(options.iface)
                && (!isAdded || remove());
        if (!isUndone)
            throw new Stop("the supplicant did not take back every change; see its networks:"
                    + " wpa_cli -i %s list_networks", options.iface);
        if (isAdded)
            out.println("Removed " + options.ssid + " again.");
        out.println("All configured networks are enabled; the supplicant chooses among them.");
    }

    private boolean remove() {
        return BWifiPlatformService.removeNetwork0(options.iface, name)
                && BWifiPlatformService.saveHostSettings0();
    }

    private static void add(Options options, AccessPoints inRange, PrintStream out) throws Stop {
        if (inRange.isProtected(options.ssid))
            throw new Stop("%s needs a password, and only open networks can be added yet; add it to"
                    + " the supplicant's configuration, then try again", options.ssid);
        if (!BWifiPlatformService.addNetwork0(options.iface, options.ssid))
            throw new Stop("the supplicant did not add %s; see whether it answers:"
                    + " wpa_cli -i %s ping", options.ssid, options.iface);
        makeReady(options);
        out.println("Added " + options.ssid + ", an open network.");
    }

    private static void makeReady(Options options) throws Stop {
        if (BWifiPlatformService.setKeyManagement0(
                    options.iface, options.ssid, KEY_MANAGEMENT_NONE)
                && BWifiPlatformService.saveHostSettings0())
            return;
        BWifiPlatformService.removeNetwork0(options.iface, options.ssid);
        throw new Stop("the supplicant did not save %s; see that its configuration file can be"
                + " written and says update_config=1, then try again", options.ssid);
    }
}
