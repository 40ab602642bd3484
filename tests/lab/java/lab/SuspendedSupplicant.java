package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import java.util.function.Supplier;

/** A supplicant that does not answer: calls fail while it is silent, and succeed when it goes on. */
final class SuspendedSupplicant {
    private SuspendedSupplicant() {}

    static void failsInTime() {
        Network removed = Networks.open();
        Wifi.configure(removed); // so that saving its removal is all that there is to save
        Checks.check("a network is removed", removeNetwork0(WLAN, removed.ssid));
        Supplicant.stop();
        try {
            checkFails("getDaemonStatus0", Wifi.UNKNOWN_STATE, () -> getDaemonStatus0(WLAN));
            checkFails("saveHostSettings0", false, () -> saveHostSettings0());
        } finally {
            Supplicant.goOn();
        }
        Checks.eventually("the supplicant goes on and answers",
                () -> getDaemonStatus0(WLAN) != Wifi.UNKNOWN_STATE, () -> "state 0");
        Wifi.save();
        ConfigurationFile.checkHolds("now the file is without it");
    }

    private static <T> void checkFails(String name, T failure, Supplier<T> call) {
        long start = System.nanoTime();
        T result = call.get();
        double seconds = Wait.secondsSince(start);
        Checks.equal(String.format("%s fails after %.1f s", name, seconds), failure, result);
    }
}
