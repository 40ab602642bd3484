package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;

import java.util.List;

/** What is done with the library, and what is checked each time. */
final class Wifi {
    static final String WLAN = "wlan0";

    static final int UNKNOWN_STATE = 0;
    static final int COMPLETED = 8;
    static final int CONNECTED = 3;

    private Wifi() {}

    /** Has the supplicant and its file know these networks and no others. */
    static void configure(Network... networks) {
        removeAll();
        for (Network network : networks)
            Checks.check(network.title + ": is added and set", network.add());
        save();
    }

    static void save() {
        Checks.check("saves", saveHostSettings0());
    }

    static List<String> ssids() {
        String[] ssids = getNetworkDatabaseSsids0(WLAN);
        return ssids == null ? List.of() : List.of(ssids);
    }

    static void checkConnects(Network network) {
        long start = System.nanoTime();
        Checks.check(network.title + ": starts to connect", connectToNetwork0(WLAN, network.ssid));
        boolean isThere = Wait.until(() -> isOn(network.ssid));
        String title = String.format("%s: is connected after %.1f s", network.title,
                Wait.secondsSince(start));
        Checks.check(title, isThere && Supplicant.isOn(network.ssid), Supplicant::place);
        Checks.equal(network.title + ": its status", CONNECTED,
                getNetworkStatus0(WLAN, network.ssid));
    }

    /** The network first: the state that is asked for later is that of this network then. */
    private static boolean isOn(String ssid) {
        return ssid.equals(getCurrentNetwork0(WLAN)) && getDaemonStatus0(WLAN) == COMPLETED;
    }

    private static void removeAll() {
        for (String ssid : ssids())
            Checks.check("removes " + ssid, removeNetwork0(WLAN, ssid));
    }
}
