package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.util.Optional;

/** The network to connect to. One that was not configured is added, and removed by close(). */
final class ChosenNetwork implements AutoCloseable {
    /** An SSID that the supplicant's client prints without escapes. */
    private static final String PLAIN_SSID = "[ -~&&[^\"\\\\]]*";

    private final Options options;
    private final PrintStream out;
    private final Protection protection; // null for a network that was configured before
    private String name;
    private boolean isReady;

    private ChosenNetwork(Options options, String name, Protection protection, PrintStream out) {
        this.options = options;
        this.name = name;
        this.protection = protection;
        this.out = out;
        isReady = !isAdded();
    }

    /** @param key  null if the user gave none */
    static ChosenNetwork open(Options options, Key key, AccessPoints inRange, PrintStream out)
            throws Stop {
        String ssid = options.ssid();
        Optional<String> known = ConfiguredNetworks.read(options.iface()).named(ssid);
        if (known.isEmpty())
            return add(options, Protection.of(ssid, inRange.securityOf(ssid), key,
                    LibraryProfile.IS_MODERN), out);
        out.println(ssid + " is configured already" + (key == null ? "." : ", with its own key."));
        return new ChosenNetwork(options, known.get(), null, out);
    }

    /** Gives a new network its security and saves it. */
    void makeReady() throws Stop {
        if (isReady)
            return;
        protection.apply(options, name, out);
        if (!BWifiPlatformService.saveHostSettings0())
            throw new Stop("the supplicant did not save %s; see that its configuration file can be"
                    + " written and says update_config=1, then try again", options.ssid());
        isReady = true;
        out.println("Saved " + options.ssid() + ".");
        if (!LibraryProfile.IS_MODERN && !name.matches(PLAIN_SSID))
            reload();
    }

    void connect() throws Stop {
        if (!BWifiPlatformService.connectToNetwork0(options.iface(), name))
            throw new Stop("the supplicant did not accept to connect to %s; see whether it answers:"
                    + " wpa_cli -i %s ping", options.ssid(), options.iface());
    }

    void disconnect() throws Stop {
        if (!BWifiPlatformService.disconnectFromNetwork0(options.iface(), name))
            throw new Stop("the supplicant did not disconnect from %s; see whether it answers:"
                    + " wpa_cli -i %s ping", options.ssid(), options.iface());
    }

    @Override
    public void close() throws Stop {
        if (!isReady)
            BWifiPlatformService.removeNetwork0(options.iface(), name);
        else if (!options.keep())
            undo();
    }

    private static ChosenNetwork add(Options options, Protection protection, PrintStream out)
            throws Stop {
        String ssid = options.ssid();
        if (!BWifiPlatformService.addNetwork0(options.iface(), ssid))
            throw new Stop("the supplicant did not add %s; see whether it answers:"
                    + " wpa_cli -i %s ping", ssid, options.iface());
        out.println("Added " + ssid + ", " + protection + ".");
        return new ChosenNetwork(options, ssid, protection, out);
    }

    /** Loads the networks again, so that the new one has its SSID in the notation of a status. */
    private void reload() throws Stop {
        BWifiPlatformService.unloadWifiSettings0();
        name = ConfiguredNetworks.read(options.iface()).named(options.ssid()).orElse(name);
    }

    /** Connecting to one network has disabled all others, so they are enabled before a save. */
    private void undo() throws Stop {
        boolean isUndone = BWifiPlatformService.roamNetworks0(options.iface())
                && (!isAdded() || remove());
        if (!isUndone)
            throw new Stop("the supplicant did not take back every change; see its networks:"
                    + " wpa_cli -i %s list_networks", options.iface());
        if (isAdded())
            out.println("Removed " + options.ssid() + " again.");
        out.println("All configured networks are enabled; the supplicant chooses among them.");
    }

    private boolean isAdded() {
        return protection != null;
    }

    private boolean remove() {
        return BWifiPlatformService.removeNetwork0(options.iface(), name)
                && BWifiPlatformService.saveHostSettings0();
    }
}
