package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;

/** Networks with the security and the names of today, all configured side by side. */
final class NetworksOfToday {
    private static final Map<AccessPoint, Network> NETWORKS = new LinkedHashMap<>();

    private NetworksOfToday() {}

    static void savedAndConnectedTo() {
        ModernNetworks.accessPoints().forEach(one -> NETWORKS.put(one, ModernNetworks.of(one)));
        Wifi.configure(networks());
        holdsAll("the file holds what was set");
        listsAll();
        Checks.eventually("a scan lists every access point", NetworksOfToday::areInRange,
                () -> scanned());
        NETWORKS.forEach(NetworksOfToday::checkConnects);
        Wifi.save();
        holdsAll("the connections change nothing in the file");
    }

    /** Each edit concerns one network: the lines of its neighbours stay. */
    static void editedAndRemoved() {
        List<Network> unusual = NETWORKS.values().stream()
                .filter(network -> !network.ssid.startsWith("lab-")).collect(Collectors.toList());
        int priority = 0;
        for (Network network : unusual) {
            edit(network, ++priority);
            holdsAll(network.title + ": an edit changes its line only");
        }
        for (Network network : unusual) {
            Checks.check(network.title + ": is removed", removeNetwork0(WLAN, network.ssid));
            NETWORKS.values().remove(network);
            listsAll();
        }
        Wifi.save();
        holdsAll("the file holds the others");
    }

    private static void edit(Network network, int priority) {
        Checks.check(network.title + ": is edited", setPriority0(WLAN, network.ssid, priority));
        network.lines("priority=" + priority);
        Wifi.save();
        Checks.equal(network.title + ": reads back", priority, getPriority0(WLAN, network.ssid));
    }

    private static void checkConnects(AccessPoint first, Network network) {
        List<AccessPoint> accessPoints = first.ofTheSameNetwork();
        if (accessPoints.size() == 1)
            checkConnectsTo(first, network);
        else
            checkConnectsToEach(accessPoints, network);
    }

    private static void checkConnectsToEach(List<AccessPoint> accessPoints, Network network) {
        for (AccessPoint one : accessPoints) {
            Checks.check(network.title + ": prefers " + one.bssid,
                    setPreferredBssid0(WLAN, network.ssid, one.bssid));
            Wifi.save();
            checkConnectsTo(one, network);
        }
        setPreferredBssid0(WLAN, network.ssid, null);
    }

    private static void checkConnectsTo(AccessPoint accessPoint, Network network) {
        long start = System.nanoTime();
        boolean isConnected = connectToNetwork0(WLAN, network.ssid)
                && Wait.until(() -> Wifi.isOn(network.ssid));
        Checks.check(String.format("%s: is connected after %.1f s", network.title,
                Wait.secondsSince(start)), isConnected, Supplicant::connection);
        Checks.equal(network.title + ": the supplicant's status",
                ModernNetworks.statusOf(accessPoint),
                Supplicant.status("ssid", "bssid", "key_mgmt", "pmf", "wpa_state"));
    }

    private static Network[] networks() {
        return NETWORKS.values().toArray(new Network[0]);
    }

    private static void holdsAll(String title) {
        ConfigurationFile.checkHolds(title, networks());
    }

    /** The library lists the network that was added last first. */
    private static void listsAll() {
        List<String> ssids = NETWORKS.values().stream().map(network -> network.ssid)
                .collect(Collectors.toCollection(ArrayList::new));
        Checks.equal("the supplicant lists all " + ssids.size(), NETWORKS.keySet().stream()
                .map(one -> one.ssid.printed).collect(Collectors.toList()), Supplicant.ssids());
        Collections.reverse(ssids);
        Checks.equal("and so does the library", ssids, Wifi.ssids());
    }

    private static boolean areInRange() {
        String lines = scanned();
        return AccessPoint.all().stream().allMatch(one -> lines.contains(one.ssid.printed)
                && lines.contains(one.bssid + "\t" + one.frequency + "\t"));
    }

    /** The elements joined: a long line continues in the next. */
    private static String scanned() {
        String[] lines = discoverNetworks0(WLAN);
        return lines == null ? "" : String.join("", lines);
    }
}
