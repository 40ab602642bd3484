package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import com.quorvel.platwifi.BWifiPlatformService;
import com.quorvel.platwifi.PlatformCrypt;

import java.util.List;

/** Rules whose effect shows in the supplicant's file or on the air, under the profile of this process. */
final class ProfileRules {
    static final boolean IS_MODERN = "modern".equals(System.getenv("PLATWIFI_PROFILE"));

    private static final Network CONNECTED = psk("lab-5ghz");
    private static final Network OTHER = psk("lab-mixed");
    private static final Network ENTERPRISE = Networks.peap(Networks.PASSWORD);
    private static final List<Network> ALL = List.of(CONNECTED, OTHER, ENTERPRISE);

    private ProfileRules() {}

    static void followed() {
        Wifi.configure(ALL.toArray(new Network[0]));
        Wifi.checkConnects(CONNECTED);
        receivedFrom();
        savedAfterAConnection();
        refusedField();
        unsetCertificate();
    }

    /** The status of the networks is queried at most every 5 s, and the scan results with it. */
    private static void receivedFrom() {
        int channel = byProfile(6, 36);
        Checks.eventually("5180 MHz is channel " + channel, () -> {
            getNetworkStatus0(WLAN, CONNECTED.ssid);
            return getStrength0(WLAN, CONNECTED.ssid) == 100
                    && getChannel0(WLAN, CONNECTED.ssid) == channel;
        }, () -> getChannel0(WLAN, CONNECTED.ssid) + ", with the strength "
                + getStrength0(WLAN, CONNECTED.ssid));
    }

    /** Under device a status pins each network to its access point, and the others stay disabled. */
    private static void savedAfterAConnection() {
        setPriority0(WLAN, CONNECTED.ssid, 7);
        CONNECTED.lines("priority=7");
        Wifi.save();
        if (!IS_MODERN) {
            ALL.forEach(network -> network.lines("bssid=" + bssidOf(network)));
            List.of(OTHER, ENTERPRISE).forEach(network -> network.lines("disabled=1"));
        }
        holds("what a save after a connection writes");
    }

    private static void refusedField() {
        set(OTHER, "short");
        Checks.equal("a save of a key that the supplicant refuses",
                byProfile("saves", "refused: psk"), save());
        holds("the file after that");
        set(OTHER, Networks.PASSPHRASE);
        Wifi.save();
    }

    private static void unsetCertificate() {
        setCACertificate0(WLAN, ENTERPRISE.ssid, null);
        Wifi.save();
        ENTERPRISE.without("ca_cert=").lines(byProfile(new String[] {"ca_cert=\"\""}, new String[0]));
        holds("the CA certificate that was unset");
        if (IS_MODERN)
            Wifi.checkConnects(ENTERPRISE);
        else
            Refusals.checkIsRefused("a CA certificate without a name", ENTERPRISE, "AUTH_FAILED");
    }

    private static String save() {
        try {
            return saveHostSettings0() ? "saves" : "fails";
        } catch (RuntimeException reason) {
            return reason.getMessage().replaceFirst(".* refused the field (\\S+);.*", "refused: $1");
        }
    }

    private static void set(Network network, String key) {
        setPreSharedKey0(WLAN, network.ssid, PlatformCrypt.encrypt(key));
    }

    private static void holds(String title) {
        ConfigurationFile.checkHolds(title, ALL.toArray(new Network[0]));
    }

    private static Network psk(String ssid) {
        return new Network(ssid, ssid)
                .with(BWifiPlatformService::setKeyManagement0, Networks.WPA_PSK, "key_mgmt=WPA-PSK")
                .secret(BWifiPlatformService::setPreSharedKey0, "psk", Networks.PASSPHRASE);
    }

    private static String bssidOf(Network network) {
        return AccessPoint.all().stream().filter(one -> one.ssid.printed.equals(network.ssid))
                .findFirst().orElseThrow().bssid;
    }

    private static <T> T byProfile(T device, T modern) {
        return IS_MODERN ? modern : device;
    }
}
