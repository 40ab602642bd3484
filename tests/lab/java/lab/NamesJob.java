package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * {@code edit SSID...}: adds networks with these SSIDs, as the client prints them, beside those that are configured;
 * edits, reloads, connects and removes them. {@code list}: prints the SSIDs that the library lists.
 */
public final class NamesJob {
    private static final List<Network> ADDED = new ArrayList<>();

    private NamesJob() {}

    public static void main(String[] arguments) {
        if (arguments[0].equals("list"))
            Wifi.ssids().forEach(System.out::println);
        else
            Checks.section("names", () -> wholeLife(Stream.of(arguments).skip(1)
                    .map(PrintedSsid::new).collect(Collectors.toList())));
        System.exit(Checks.failures() == 0 ? 0 : 1);
    }

    private static void wholeLife(List<PrintedSsid> ssids) {
        List<List<String>> neighbours = ConfigurationFile.blocks();
        List<String> names = Wifi.ssids();
        for (PrintedSsid ssid : ssids)
            add(ssid);
        Wifi.save();
        hold("the file holds them, and the neighbours as before", neighbours);
        for (int i = 0; i < ADDED.size(); ++i)
            edit(ADDED.get(i), i + 1, neighbours);
        reload(names);
        ADDED.forEach(NamesJob::connect);
        ADDED.forEach(network -> Checks.check(network.title + ": is removed",
                removeNetwork0(WLAN, network.ssid)));
        Wifi.save();
        Checks.equal("the library lists the neighbours", names, Wifi.ssids());
    }

    private static void add(PrintedSsid ssid) {
        Network network = new Network(ssid.printed, ssid.text(), ssid.inFile())
                .with(BWifiPlatformService::setKeyManagement0, Networks.NONE, "key_mgmt=NONE");
        Checks.check(network.title + ": is added and set", network.add());
        ADDED.add(network);
    }

    private static void edit(Network network, int priority, List<List<String>> neighbours) {
        Checks.check(network.title + ": is edited", setPriority0(WLAN, network.ssid, priority));
        network.lines("priority=" + priority);
        Wifi.save();
        hold(network.title + ": the edit changes its line only", neighbours);
    }

    private static void reload(List<String> neighbours) {
        unloadWifiSettings0();
        List<String> expected = ADDED.stream().map(network -> network.ssid)
                .collect(Collectors.toCollection(ArrayList::new));
        Collections.reverse(expected); // the one that was added last is the first
        expected.addAll(neighbours);
        Checks.equal("a reload finds all", expected, Wifi.ssids());
        for (int i = 0; i < ADDED.size(); ++i)
            Checks.equal(ADDED.get(i).title + ": its priority", i + 1,
                    getPriority0(WLAN, ADDED.get(i).ssid));
    }

    private static void connect(Network network) {
        Checks.check(network.title + ": starts to connect", connectToNetwork0(WLAN, network.ssid));
        Checks.eventually(network.title + ": is connected", () -> Wifi.isOn(network.ssid),
                Supplicant::connection);
        Checks.equal(network.title + ": so says the supplicant", "ssid=" + network.title
                + " wpa_state=COMPLETED", Supplicant.status("ssid", "wpa_state"));
    }

    private static void hold(String title, List<List<String>> neighbours) {
        List<List<String>> wanted = new ArrayList<>(neighbours);
        ADDED.forEach(network -> wanted.add(network.block()));
        ConfigurationFile.checkHolds(title, wanted);
    }
}
