package lab.api;

import com.quorvel.platwifi.api.AccessPoint;
import com.quorvel.platwifi.api.Connection;
import com.quorvel.platwifi.api.Network;
import com.quorvel.platwifi.api.Passphrase;
import com.quorvel.platwifi.api.Reason;
import com.quorvel.platwifi.api.Security;
import com.quorvel.platwifi.api.Ssid;
import com.quorvel.platwifi.api.Wifi;
import com.quorvel.platwifi.api.WifiEvent;
import com.quorvel.platwifi.api.WifiException;
import com.quorvel.platwifi.api.WifiFuture;
import com.quorvel.platwifi.api.WifiState;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.Duration;
import java.util.List;
import java.util.concurrent.CancellationException;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;
import java.util.stream.Collectors;

/** A program that is written against the API alone. The client of the supplicant only verifies what it has done. */
public final class ApiJob {
    private static final Duration TIMEOUT = Duration.ofHours(1); // no attempt takes so long, even on a slow machine
    private static final String WRONG = "not the passphrase";
    private static final Path FILE = Path.of(System.getenv("LAB_SUPPLICANT_CONF"));

    private static int failures;

    private final LinkedBlockingQueue<WifiEvent> events = new LinkedBlockingQueue<>();
    private final Wifi wifi;

    private ApiJob(Wifi wifi) {
        this.wifi = wifi;
        wifi.addListener(events::add);
    }

    /** Writes the output of the program that the documentation begins with, then runs the job. */
    public static void main(String[] arguments) throws Exception {
        First.main(new String[] {"lab-psk", System.getenv("LAB_PASSPHRASE")});
        try (Wifi wifi = Wifi.open()) {
            ApiJob job = new ApiJob(wifi);
            job.scans();
            job.joinsEachKind();
            job.namesTheCause();
            job.cancels();
            job.editsAllOrNothing();
            job.roams();
        }
        check("no thread is left", threads().isEmpty(), threads());
        // An exit would unload the settings, which takes seconds.
        Runtime.getRuntime().halt(failures == 0 ? 0 : 1);
    }

    private void scans() {
        List<AccessPoint> found = wifi.scan();
        found.forEach(ap -> System.out.println("        " + ap));
        check("a scan finds all access points", names(found).containsAll(
                List.of("lab-open", "lab-psk", "lab-wpa3")), names(found));
        check("the network of the first program is configured", hasNetwork("lab-psk"),
                wifi.networks());
        wifi.remove("lab-psk");
        check("a removed network is in the file no longer", !file().contains("lab-psk"), "");
    }

    private void joinsEachKind() throws Exception {
        joins("lab-open", null, Security.OPEN);
        check("its connection is open", wifi.link().get().keyManagement().equals("NONE"),
                wifi.link());
        joins("lab-wpa3", System.getenv("LAB_SAE_PASSWORD"), Security.WPA3_SAE);
        check("its frames are protected", wifi.link().get().protectsFrames(), wifi.link());
        joins("lab-psk", System.getenv("LAB_PASSPHRASE"), Security.WPA2_PSK);
        check("the file holds all of them", List.of("lab-open", "lab-wpa3", "lab-psk").stream()
                .allMatch(name -> file().contains("ssid=\"" + name + "\"")), "");
    }

    private void joins(String ssid, String key, Security security) throws Exception {
        events.clear();
        Connection made = joining(ssid, key).get();
        System.out.println("        " + made + ", " + made.security().get() + ", after "
                + made.time().toMillis() + " ms");
        check("joins " + ssid, made.ssid().equals(Ssid.of(ssid)), made);
        check("its security is " + security, made.security().get() == security, made.security());
        check("the state is COMPLETED", wifi.state() == WifiState.COMPLETED, wifi.state());
        check("the client says so", client("status").contains("ssid=" + ssid), client("status"));
        WifiEvent connected = await(WifiEvent.Kind.CONNECTED);
        check("an event reports it", connected.ssid().equals(java.util.Optional.of(Ssid.of(ssid))),
                connected);
    }

    private WifiFuture<Connection> joining(String ssid, String key) {
        Network.Builder network = Network.builder(ssid);
        if (key != null)
            network.passphrase(Passphrase.of(key.toCharArray()));
        return wifi.join(network.build(), TIMEOUT);
    }

    private void namesTheCause() {
        wifi.remove("lab-psk");
        String before = file();
        fails("a wrong key", Reason.WRONG_KEY, joining("lab-psk", WRONG));
        check("leaves nothing behind", file().equals(before) && !hasNetwork("lab-psk"), "");
        fails("a name that is not there", Reason.NOT_IN_RANGE, joining("lab-pks", WRONG));
        fails("no key for a network that needs one", Reason.FAILED, joining("lab-psk", null));
        check("leaves nothing behind either", file().equals(before), "");
    }

    private static void fails(String what, Reason reason, WifiFuture<Connection> joining) {
        try {
            check(what, false, joining.get());
        } catch (WifiException e) {
            System.out.println("        " + e.reason() + ": " + e.getMessage());
            check(what + " is " + reason, e.reason() == reason, e);
            check("the message holds no secret", !e.getMessage().contains(WRONG), "");
        }
    }

    private void cancels() throws Exception {
        client("bssid_ignore", "clear");
        String before = file();
        events.clear();
        WifiFuture<Connection> joining = joining("lab-psk", WRONG);
        await(WifiEvent.Kind.ASSOCIATING);
        joining.cancel(true);
        try {
            joining.get();
            check("a cancelled join ends", false, "");
        } catch (CancellationException e) {
            check("a cancelled join ends", true, "");
        }
        check("its thread ends", until(() -> threads().equals(List.of("platwifi-events wlan0"))),
                threads());
        check("it leaves nothing behind", file().equals(before) && !hasNetwork("lab-psk")
                && !client("list_networks").contains("lab-psk"), client("list_networks"));
    }

    private void editsAllOrNothing() {
        String before = file();
        String list = client("list_networks").replaceAll("\\[CURRENT\\]", "");
        try {
            wifi.edit(edit -> {
                edit.add(Network.builder("new").passphrase(
                        Passphrase.of(WRONG.toCharArray())).build());
                edit.save(network("lab-open").edit().priority(7).build());
                edit.remove("lab-pks");
            });
            check("a block with a wrong name fails", false, "");
        } catch (WifiException e) {
            System.out.println("        " + e.reason() + ": " + e.getMessage());
            check("a block with a wrong name fails", e.reason() == Reason.FAILED, e);
        }
        check("nothing of it is in the file", file().equals(before), "");
        check("nor in the supplicant", client("list_networks").replaceAll("\\[CURRENT\\]", "")
                .equals(list), client("list_networks"));
        check("nor in memory", network("lab-open").priority() == 0 && !hasNetwork("new"),
                wifi.networks());
        wifi.edit(edit -> {
            edit.save(network("lab-open").edit().priority(7).build());
            edit.remove("lab-wpa3");
        });
        check("a good one is saved as a whole", file().contains("priority=7")
                && !file().contains("lab-wpa3"), "");
    }

    private void roams() throws Exception {
        wifi.disconnect();
        check("a disconnection ends the connection", until(() -> wifi.link().isEmpty()), wifi.state());
        events.clear();
        wifi.roam();
        await(WifiEvent.Kind.CONNECTED);
        check("after roam the supplicant is on a network", until(() -> wifi.link().isPresent()),
                wifi.state());
        wifi.disconnect();
        wifi.connect(Ssid.of("lab-open"), TIMEOUT).get();
        check("a configured network is connected to", wifi.state() == WifiState.COMPLETED,
                wifi.state());
    }

    private WifiEvent await(WifiEvent.Kind kind) throws InterruptedException {
        for (WifiEvent event = next(); event != null; event = next()) {
            System.out.println("        event " + event);
            if (event.kind() == kind)
                return event;
        }
        throw new IllegalStateException("there was no event " + kind);
    }

    private WifiEvent next() throws InterruptedException {
        return events.poll(2, TimeUnit.MINUTES);
    }

    private Network network(String ssid) {
        return wifi.network(ssid).get();
    }

    private boolean hasNetwork(String ssid) {
        return wifi.network(ssid).isPresent();
    }

    private static List<String> names(List<AccessPoint> found) {
        return found.stream().map(ap -> ap.ssid().text()).collect(Collectors.toList());
    }

    private static boolean until(java.util.function.BooleanSupplier condition) {
        for (int i = 0; i < 1200 && !condition.getAsBoolean(); ++i) {
            try {
                Thread.sleep(100);
            } catch (InterruptedException e) {
                throw new IllegalStateException(e);
            }
        }
        return condition.getAsBoolean();
    }

    private static List<String> threads() {
        return Thread.getAllStackTraces().keySet().stream().map(Thread::getName)
                .filter(name -> name.startsWith("platwifi-")).collect(Collectors.toList());
    }

    private static String file() {
        try {
            return Files.readString(FILE);
        } catch (IOException e) {
            throw new IllegalStateException(e);
        }
    }

    private static String client(String... words) {
        try {
            ProcessBuilder builder = new ProcessBuilder("wpa_cli", "-iwlan0");
            builder.command().addAll(List.of(words));
            return new String(builder.start().getInputStream().readAllBytes(),
                    StandardCharsets.UTF_8);
        } catch (IOException e) {
            throw new IllegalStateException(e);
        }
    }

    private static void check(String title, boolean isRight, Object found) {
        System.out.println(isRight ? "ok      " + title : "FAILED  " + title + ": " + found);
        if (!isRight)
            ++failures;
    }
}
