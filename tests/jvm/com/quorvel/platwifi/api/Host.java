package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.fail;

import com.quorvel.platwifi.BWifiPlatformService;
import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.function.Executable;

import java.util.List;
import java.util.function.BooleanSupplier;
import java.util.stream.Collectors;

/** A host with the adapter wlan0: a scripted client, and a control socket. */
public final class Host implements AutoCloseable {
    public static final String IDLE = "wpa_state=INACTIVE\n";
    public static final String WPA2 = "[WPA2-PSK-CCMP][ESS]";
    public static final String SECRET = "correct horse";

    private static final long LONGEST_WAIT_NANOSECONDS = 60_000_000_000L;
    private static final int PAUSE_MILLISECONDS = 5;

    public final ControlSocket socket = new ControlSocket();

    public Host() {
        Natives.load();
        BWifiPlatformService.unloadWifiSettings0();
    }

    @Override
    public void close() {
        socket.close();
    }

    public static String accessPoint(String ssid, String flags) {
        return "02:00:00:00:01:00\t2412\t-40\t" + flags + "\t" + ssid + "\n";
    }

    /** A supplicant with the network home, whose commands all succeed; rules of a test come before these. */
    public static StandIn supplicant(StandIn rules, String accessPoints) {
        for (String command : List.of("scan", "disconnect", "reassociate", "reconfigure", "save_config"))
            rules.when("-iwlan0", command).print("OK\n");
        return rules.when("interface").print("Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n")
                .when("-iwlan0", "list_networks")
                .print("network id / ssid / bssid / flags\n0\thome\tany\t\n")
                .when("-iwlan0", "scan_results").print(StandIn.HEADER + accessPoints)
                .when("-iwlan0", "add_network").print("1\n")
                .when("-iwlan0", "get_capability", "key_mgmt").print("NONE WPA-EAP WPA-PSK OWE SAE\n")
                .when("-iwlan0", "signal_poll").print("RSSI=-40\nLINKSPEED=54\n")
                .when("-iwlan0", "status").print(IDLE)
                .when("-iwlan0", "get_network", "*").print("FAIL\n")
                .when("*").print("OK\n");
    }

    public static String statusOn(String ssid, int id) {
        return "bssid=02:00:00:00:01:00\nfreq=2412\nssid=" + ssid + "\nid=" + id
                + "\nkey_mgmt=WPA2-PSK\nip_address=192.0.2.7\nwpa_state=COMPLETED\n";
    }

    /** The calls of the client that change something. */
    static List<String> changes() {
        return StandIn.calls().stream()
                .filter(call -> !call.matches("-iwlan0 (list_networks|scan_results|status|get_network"
                        + "|scan|get_capability|signal_poll|disconnect).*"))
                .map(call -> call.replace("-iwlan0 ", "")).collect(Collectors.toList());
    }

    public static void awaitCall(String call) {
        await(() -> StandIn.calls().contains("-iwlan0 " + call));
    }

    public static void await(BooleanSupplier condition) {
        long end = System.nanoTime() + LONGEST_WAIT_NANOSECONDS;
        while (!condition.getAsBoolean()) {
            if (System.nanoTime() > end)
                fail("it did not come about");
            try {
                Thread.sleep(PAUSE_MILLISECONDS);
            } catch (InterruptedException e) {
                throw new IllegalStateException(e);
            }
        }
    }

    /** The threads of the API. */
    static List<String> threads() {
        return Thread.getAllStackTraces().keySet().stream().map(Thread::getName)
                .filter(name -> name.startsWith("platwifi-")).sorted().collect(Collectors.toList());
    }

    static WifiException failure(Reason reason, Executable call) {
        WifiException failure = assertThrows(WifiException.class, call);
        if (failure.reason() != reason)
            fail(failure.reason() + " in place of " + reason + ": " + failure.getMessage());
        if (failure.getMessage().contains(SECRET) || failure.getMessage().contains("\n"))
            fail("no message has a secret or a second line: " + failure.getMessage());
        return failure;
    }

    static Passphrase secret() {
        return Passphrase.of(SECRET.toCharArray());
    }
}
