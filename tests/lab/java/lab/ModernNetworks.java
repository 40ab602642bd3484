package lab;

import static lab.Networks.CCMP;
import static lab.Networks.NONE;
import static lab.Networks.WPA_PSK;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;

/** A network for each SSID of access-points-modern, under the profile modern. */
final class ModernNetworks {
    private static final int SAE = 0x20;
    private static final int OWE = 0x40;
    private static final int WPA_PSK_SHA256 = 0x80;
    private static final int GCMP_256 = 0x40;

    private static final String PASSPHRASE = Networks.PASSPHRASE;

    /** For each kind of access point: key management and PMF in the status of a connection. */
    private static final Map<String, String> STATUS = Map.of(
            "open", "key_mgmt=NONE pmf=-",
            "wpa2-psk", "key_mgmt=WPA2-PSK pmf=-",
            "wpa2-sha256", "key_mgmt=WPA2-PSK-SHA256 pmf=2",
            "wpa2-wpa3", "key_mgmt=SAE pmf=1",
            "wpa3", "key_mgmt=SAE pmf=2",
            "owe", "key_mgmt=OWE pmf=2",
            "wpa2-eap", "key_mgmt=WPA2/IEEE 802.1X/EAP pmf=-");

    private ModernNetworks() {}

    static String statusOf(AccessPoint accessPoint) {
        return "ssid=" + accessPoint.ssid.printed + " bssid=" + accessPoint.bssid + " "
                + STATUS.get(accessPoint.kind) + " wpa_state=COMPLETED";
    }

    /** The access points, the first of each network. */
    static List<AccessPoint> accessPoints() {
        return AccessPoint.all().stream()
                .filter(one -> one.ofTheSameNetwork().get(0).bssid.equals(one.bssid))
                .collect(Collectors.toList());
    }

    static Network of(AccessPoint accessPoint) {
        PrintedSsid ssid = accessPoint.ssid;
        Network network = new Network(ssid.printed, ssid.text(), ssid.inFile());
        switch (accessPoint.kind) {
        case "open":
            return keyManagement(network, NONE, "NONE");
        case "wpa2-psk":
            return keyManagement(network, WPA_PSK, "WPA-PSK")
                    .secret(BWifiPlatformService::setPreSharedKey0, "psk", PASSPHRASE);
        case "wpa2-sha256":
            return withEitherKey(network, WPA_PSK | WPA_PSK_SHA256 | SAE,
                    "WPA-PSK WPA-PSK-SHA256 SAE");
        case "wpa2-wpa3":
            return withEitherKey(network, WPA_PSK | SAE, "WPA-PSK SAE");
        case "wpa3":
            return keyManagement(network, SAE, "SAE", "ieee80211w=2")
                    .with(BWifiPlatformService::setEncryption0, CCMP | GCMP_256,
                            "pairwise=GCMP-256 CCMP", "group=GCMP-256 CCMP")
                    .secret(BWifiPlatformService::setPreSharedKey0, "sae_password",
                            Host.variable("LAB_SAE_PASSWORD"));
        case "owe":
            return keyManagement(network, OWE, "OWE", "ieee80211w=2");
        case "wpa2-eap":
            return Networks.peap(Networks.PASSWORD);
        default:
            throw new IllegalStateException("no network is known for " + accessPoint.kind);
        }
    }

    /** No native sets PMF: with SAE the library makes it optional where another method is allowed. */
    private static Network withEitherKey(Network network, int flags, String words) {
        return keyManagement(network, flags, words, "ieee80211w=1",
                "psk=" + Network.quoted(PASSPHRASE))
                .secret(BWifiPlatformService::setPreSharedKey0, "sae_password", PASSPHRASE);
    }

    private static Network keyManagement(Network network, int flags, String words,
            String... others) {
        return network.with(BWifiPlatformService::setKeyManagement0, flags, "key_mgmt=" + words)
                .lines(others);
    }
}
