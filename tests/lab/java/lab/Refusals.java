package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import com.quorvel.platwifi.PlatformCrypt;

import java.util.Set;

/** Wrong secrets and a missing file: there is no connection, and no other failure. */
final class Refusals {
    private static final int ENABLED = 1;
    private static final int CONNECTING = 4;

    private Refusals() {}

    static void wrongPassphrase() {
        Network network = Networks.psk("not the passphrase");
        configuredIsRefused("a wrong passphrase", network, "WRONG_KEY");
        Checks.check("the right passphrase is set", setPreSharedKey0(WLAN, network.ssid,
                PlatformCrypt.encrypt(Networks.PASSPHRASE)));
        Wifi.save();
        Wifi.checkConnects(network);
    }

    static void enterprise() {
        configuredIsRefused("a wrong password", Networks.peap("not the password"), "AUTH_FAILED");
        configuredIsRefused("a certificate that is not there", Networks.tls("none.pem"),
                "AUTH_FAILED");
    }

    private static void configuredIsRefused(String why, Network network, String reason) {
        Wifi.configure(network);
        checkIsRefused(why, network, reason);
    }

    static void checkIsRefused(String why, Network network, String reason) {
        int before = Supplicant.logLines();
        String pattern = ".*DISABLED.*" + reason + ".*";
        Checks.check(why + ": starts to connect", connectToNetwork0(WLAN, network.ssid));
        boolean[] wasCompleted = {false};
        Checks.eventually(why + ": is refused, " + reason, () -> {
            wasCompleted[0] |= getDaemonStatus0(WLAN) == Wifi.COMPLETED;
            return Supplicant.hasLogged(before, line -> line.matches(pattern));
        }, Supplicant::connection);
        Checks.check(why + ": was never connected", !wasCompleted[0]);
        checkIsNotConnected(why, network);
        Supplicant.clearRefusals();
    }

    private static void checkIsNotConnected(String why, Network network) {
        int state = getDaemonStatus0(WLAN);
        Checks.check(why + ": the supplicant answers and is not connected",
                state != Wifi.UNKNOWN_STATE && state != Wifi.COMPLETED, () -> "state " + state);
        int status = getNetworkStatus0(WLAN, network.ssid);
        Checks.check(why + ": the network is enabled or connecting",
                Set.of(ENABLED, CONNECTING).contains(status), () -> "status " + status);
    }
}
