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
    private final PrintStream out;
    private final boolean isAdded;
    private boolean isReady;

    private ChosenNetwork(Options options, PrintStream out, Optional<String> known) {
        name = known.orElse(options.ssid);
        this.options = options;
        this.out = out;
        isAdded = known.isEmpty();
        isReady = !isAdded;
    }

    static ChosenNetwork open(Options options, AccessPoints inRange, PrintStream out) throws Stop {
        Optional<String> known = ConfiguredNetworks.read(options.iface).named(options.ssid);
        if (known.isEmpty())
            add(options, inRange);
        out.println(known.isEmpty() ? "Added " + options.ssid + ", an open network."
                                    : options.ssid + " is configured already.");
        return new ChosenNetwork(options, out, known);
    }

    /** Has the supplicant know what it needs to connect. */
    void makeReady() throws Stop {
        if (isReady)
            return;
        isReady = BWifiPlatformService.setKeyManagement0(options.iface, name, KEY_MANAGEMENT_NONE)
                && BWifiPlatformService.saveHostSettings0();
        if (!isReady)
            throw new Stop("the supplicant did not save %s; see that its configuration file can be"
                    + " written and says update_config=1, then try again", options.ssid);
    }

    @Override
    public void close() throws Stop {
        if (!isReady)
            BWifiPlatformService.removeNetwork0(options.iface, name);
        else if (!options.keep)
            putBack();
    }

    /** Connecting to one network disables all others, so each is enabled before anything is saved. */
    private void putBack() throws Stop {
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

    private static void add(Options options, AccessPoints inRange) throws Stop {
        if (inRange.isProtected(options.ssid))
            throw new Stop("%s needs a password, and only open networks can be added yet; add it to"
                    + " the supplicant's configuration, then try again", options.ssid);
        if (!BWifiPlatformService.addNetwork0(options.iface, options.ssid))
            throw new Stop("the supplicant did not add %s; see whether it answers:"
                    + " wpa_cli -i %s ping", options.ssid, options.iface);
    }
}
