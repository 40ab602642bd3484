package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;

import java.util.List;

/** Operations of the library, each with its checks. */
final class Wifi {
    static final String WLAN = Host.variable("LAB_INTERFACE");

    static final int UNKNOWN_STATE = 0;
    static final int COMPLETED = 8;
    static final int CONNECTED = 3;

    private Wifi() {}

    /** Makes these the only networks of the supplicant and of its file. */
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
        boolean isConnected = Wait.until(() -> isOn(network.ssid));
        String title = String.format("%s: is connected after %.1f s", network.title,
                Wait.secondsSince(start));
        Checks.check(title, isConnected && Supplicant.isOn(network.ssid),
                Supplicant::connection);
        Checks.equal(network.title + ": its status", CONNECTED,
                getNetworkStatus0(WLAN, network.ssid));
    }

    /** Queries the network first and then the state, which is then never that of an earlier network. */
    static boolean isOn(String ssid) {
        return ssid.equals(getCurrentNetwork0(WLAN)) && getDaemonStatus0(WLAN) == COMPLETED;
    }

    static void removeAll() {
        for (String ssid : ssids())
            Checks.check("removes " + ssid, removeNetwork0(WLAN, ssid));
    }
}
