package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import java.util.function.Supplier;

/** Calls fail while the supplicant is suspended, and succeed after it is resumed. */
final class SuspendedSupplicant {
    private SuspendedSupplicant() {}

    static void failsInTime() {
        Network removed = Networks.open();
        Wifi.configure(removed); // so that its removal is the only change to save
        Checks.check("a network is removed", removeNetwork0(WLAN, removed.ssid));
        Supplicant.suspend();
        try {
            checkFails("getDaemonStatus0", Wifi.UNKNOWN_STATE, () -> getDaemonStatus0(WLAN));
            checkFails("saveHostSettings0", false, () -> saveHostSettings0());
        } finally {
            Supplicant.resume();
        }
        Checks.eventually("the supplicant is resumed and answers",
                () -> getDaemonStatus0(WLAN) != Wifi.UNKNOWN_STATE, () -> "state 0");
        Wifi.save();
        ConfigurationFile.checkHolds("the file has no network any more");
    }

    private static <T> void checkFails(String name, T failure, Supplier<T> call) {
        long start = System.nanoTime();
        T result = call.get();
        double seconds = Wait.secondsSince(start);
        Checks.equal(String.format("%s fails after %.1f s", name, seconds), failure, result);
    }
}
