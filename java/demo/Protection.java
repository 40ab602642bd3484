package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.util.Collection;
import java.util.Map;

/** The security of a new network: the fields that are set before the supplicant can save it. */
final class Protection {
    private static final int KEY_MANAGEMENT_NONE = 0x1;
    private static final int KEY_MANAGEMENT_WPA_PSK = 0x2;

    /** The kinds of security with a pre-shared key, each with the flag of its protocol. */
    private static final Map<String, Integer> PROTOCOLS = Map.of("WPA-PSK", 0x1, "WPA2-PSK", 0x2);

    private final Key key;
    private final int protocols;

    private Protection(Key key, int protocols) {
        this.key = key;
        this.protocols = protocols;
    }

    /**
     * @param offered  the kinds of security that its access points announce; empty if none is in
     *                 range
     * @param key      null if the user gave none
     */
    static Protection of(String ssid, Collection<String> offered, Key key) throws Stop {
        boolean isOpen = offered.isEmpty() || offered.contains(Security.OPEN);
        int protocols = protocolsOf(offered.isEmpty() ? PROTOCOLS.keySet() : offered);
        if (key == null ? isOpen : protocols != 0)
            return new Protection(key, protocols);
        throw cannotAdd(ssid, offered, protocols != 0, isOpen);
    }

    /** @param name  the library's name of the network */
    void apply(Options options, String name, PrintStream out) throws Stop {
        boolean isSet = key == null
                ? BWifiPlatformService.setKeyManagement0(
                        options.iface(), name, KEY_MANAGEMENT_NONE)
                : BWifiPlatformService.setKeyManagement0(
                        options.iface(), name, KEY_MANAGEMENT_WPA_PSK)
                  && BWifiPlatformService.setProtocol0(options.iface(), name, protocols);
        if (!isSet)
            throw new Stop("the library did not take the settings of %s; try again",
                    options.ssid());
        if (key != null)
            StoredKey.store(key, options, name, out);
    }

    @Override
    public String toString() {
        return key == null ? "an open network" : "a network with a pre-shared key";
    }

    private static int protocolsOf(Collection<String> kinds) {
        return kinds.stream().mapToInt(kind -> PROTOCOLS.getOrDefault(kind, 0)).sum();
    }

    private static Stop cannotAdd(String ssid, Collection<String> offered, boolean takesKey,
            boolean isOpen) {
        if (takesKey)
            return new Stop("%s needs its key; write that into a file and name it:"
                    + " --key-file FILE", ssid);
        if (isOpen)
            return new Stop("%s is open and takes no key; leave out --key-file", ssid);
        return new Stop("%s is protected by %s, and only open networks and those with a"
                + " pre-shared key can be added here; add it to the supplicant's configuration,"
                + " then try again", ssid, String.join("/", offered));
    }
}
