package demo;

import com.quorvel.platwifi.api.FrameProtection;
import com.quorvel.platwifi.api.KeyManagement;
import com.quorvel.platwifi.api.Network;
import com.quorvel.platwifi.api.Passphrase;
import com.quorvel.platwifi.api.Ssid;

import java.util.Collection;
import java.util.EnumSet;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Set;
import java.util.stream.Collectors;

/** The security of a new network. */
final class Protection {
    /** The kinds of security that can be added here: what an access point offers, and how it gives keys. */
    private static final Map<String, KeyManagement> METHODS = Map.of(
            "open", KeyManagement.NONE,
            "OWE-transition", KeyManagement.NONE,
            "OWE", KeyManagement.OWE,
            "WPA-PSK", KeyManagement.WPA_PSK,
            "WPA2-PSK", KeyManagement.WPA_PSK,
            "WPA3-SAE", KeyManagement.SAE);
    private static final Set<KeyManagement> WITHOUT_KEY = EnumSet.of(KeyManagement.NONE, KeyManagement.OWE);

    /** Out of range: what most networks are. */
    private static final List<String> USUAL = List.of("open", "WPA2-PSK");

    private final Ssid ssid;
    private final Key key;
    private final Set<KeyManagement> methods;

    private Protection(Ssid ssid, Key key, Collection<KeyManagement> methods) {
        this.ssid = ssid;
        this.key = key;
        this.methods = EnumSet.copyOf(methods);
    }

    /**
     * @param offered  the kinds of security that its access points offer; empty if none is in range
     * @param key      null if the user gave none
     */
    static Protection of(Ssid ssid, Collection<String> offered, Key key) throws Stop {
        List<KeyManagement> known = (offered.isEmpty() ? USUAL : offered).stream().map(METHODS::get)
                .filter(Objects::nonNull).collect(Collectors.toList());
        List<KeyManagement> usable = known.stream()
                .filter(method -> WITHOUT_KEY.contains(method) == (key == null))
                .collect(Collectors.toList());
        if (usable.isEmpty())
            throw cannotAdd(ssid, offered, known);
        return new Protection(ssid, key, key == null ? usable.subList(0, 1) : usable);
    }

    /** The network with this security. */
    Network network() {
        Network.Builder network = Network.builder(ssid).keyManagement(methods.toArray(new KeyManagement[0]));
        if (methods.contains(KeyManagement.SAE) || methods.contains(KeyManagement.OWE))
            network.frameProtection(FrameProtection.OPTIONAL); // their access points require it
        if (key != null)
            network.passphrase(Passphrase.of(key.plain().toCharArray()));
        return network.build();
    }

    @Override
    public String toString() {
        return key == null ? "an open network" : "a network with a pre-shared key";
    }

    /** @param known  the methods of the network that can be added here; it has no key or takes none */
    private static Stop cannotAdd(Ssid ssid, Collection<String> offered, List<KeyManagement> known) {
        if (known.isEmpty())
            return new Stop("%s is protected by %s, and only open networks and those with a pre-shared"
                    + " key or an SAE password can be added here; add it to the supplicant's"
                    + " configuration, then try again", ssid, String.join("/", offered));
        if (WITHOUT_KEY.contains(known.get(0)))
            return new Stop("%s is open and takes no key; leave out --key-file", ssid);
        return new Stop("%s needs its key; write that into a file and name it: --key-file FILE", ssid);
    }
}
