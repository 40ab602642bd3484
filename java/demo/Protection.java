package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.util.Collection;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The security of a new network: the fields that are set before the supplicant can save it. */
final class Protection {
    /** A kind of security as the library takes it. */
    private static final class Method {
        final int keyManagement;
        final int protocol;
        final boolean takesKey;
        final boolean isOfToday; // known under the profile modern

        Method(int keyManagement, int protocol, boolean takesKey, boolean isOfToday) {
            this.keyManagement = keyManagement;
            this.protocol = protocol;
            this.takesKey = takesKey;
            this.isOfToday = isOfToday;
        }
    }

    private static final int WPA = 0x1;
    private static final int RSN = 0x2;

    private static final Map<String, Method> METHODS = new LinkedHashMap<>();

    static {
        METHODS.put(Security.OPEN, new Method(0x1, 0, false, false));
        METHODS.put("OWE", new Method(0x40, RSN, false, true));
        METHODS.put("WPA-PSK", new Method(0x2, WPA, true, false));
        METHODS.put("WPA2-PSK", new Method(0x2, RSN, true, false));
        METHODS.put("WPA3-SAE", new Method(0x20, RSN, true, true));
    }

    /** Out of range: what most networks are. */
    private static final List<String> USUAL = List.of(Security.OPEN, "WPA-PSK", "WPA2-PSK");

    private final Key key;
    private final List<Method> methods;

    private Protection(Key key, List<Method> methods) {
        this.key = key;
        this.methods = methods;
    }

    /**
     * @param offered   the kinds of security that its access points announce; empty if none is in
     *                  range
     * @param key       null if the user gave none
     * @param isModern  whether the library has the profile modern
     */
    static Protection of(String ssid, Collection<String> offered, Key key, boolean isModern)
            throws Stop {
        List<Method> known = (offered.isEmpty() ? USUAL : offered).stream()
                .map(METHODS::get).filter(method -> method != null
                        && (isModern || !method.isOfToday))
                .collect(Collectors.toList());
        List<Method> usable = known.stream().filter(method -> method.takesKey == (key != null))
                .collect(Collectors.toList());
        if (usable.isEmpty())
            throw cannotAdd(ssid, offered, known, isModern);
        return new Protection(key, key == null ? usable.subList(0, 1) : usable);
    }

    /** @param name  the library's name of the network */
    void apply(Options options, String name, PrintStream out) throws Stop {
        int protocols = flags(methods.stream().map(method -> method.protocol));
        boolean isSet = BWifiPlatformService.setKeyManagement0(options.iface(), name,
                flags(methods.stream().map(method -> method.keyManagement)))
                && (protocols == 0
                    || BWifiPlatformService.setProtocol0(options.iface(), name, protocols));
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

    private static int flags(Stream<Integer> all) {
        return all.reduce(0, (left, right) -> left | right);
    }

    /** @param known  the methods of the network that the library knows; it has no key or takes none */
    private static Stop cannotAdd(String ssid, Collection<String> offered, List<Method> known,
            boolean isModern) {
        if (known.isEmpty())
            return new Stop("%s is protected by %s, and only %s can be added here; add it to the"
                    + " supplicant's configuration, then try again", ssid,
                    String.join("/", offered), isModern
                            ? "open networks and those with a pre-shared key or an SAE password"
                            : "open networks and those with a pre-shared key");
        if (known.get(0).takesKey)
            return new Stop("%s needs its key; write that into a file and name it:"
                    + " --key-file FILE", ssid);
        return new Stop("%s is open and takes no key; leave out --key-file", ssid);
    }
}
