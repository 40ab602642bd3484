package demo;

import static demo.DemoRun.CAFE;
import static demo.DemoRun.HOME;
import static demo.DemoRun.adding;
import static demo.DemoRun.changes;
import static demo.DemoRun.connecting;
import static demo.DemoRun.play;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.stream.Collectors;

/** The program when it connects to networks with a key. */
class ProtectedNetworkTest extends DemoTest {
    private static final String WORK = "02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\twork\n";
    private static final String OFFICE =
            "02:00:00:00:03:00\t2412\t-30\t[WPA2-EAP-CCMP][ESS]\toffice\n";
    private static final String SECRET = "correct horse";
    private static final List<String> REMOVED =
            List.of("remove_network 0", "save_config", "reconfigure");

    private String keyFile;

    @BeforeEach
    void writeKey() throws IOException {
        keyFile = Files.writeString(folder.resolve("key"), SECRET + "\n").toString();
    }

    @Test
    void isAddedWithItsKeyConnectedToAndRemoved() {
        play(connecting(adding("work"), "work"), "", WORK);
        assertEquals(0, demo.run("--connect", "work", "--key-file", keyFile), demo::errors);
        demo.assertLast("Added work, a network with a pre-shared key\\.",
                "Key of work enciphered: crypt1:.{24}…",
                "Reads back enciphered, the same key: crypt1:.{24}…", "Saved work\\.",
                "Connecting to work .*COMPLETED[ .]*", "Disconnecting from work .*DISCONNECTED[ .]*",
                "Removed work again\\.", "All configured networks are enabled; .*");
        assertTrue(changes().containsAll(List.of("set_network 0 psk \"" + SECRET + "\"",
                "set_network 0 key_mgmt WPA-PSK")), changes()::toString);
        assertEquals(REMOVED, lastChanges());
    }

    @Test
    void theKeyIsNowhereInTheOutput() {
        play(connecting(adding("work"), "work"), "", WORK);
        demo.run("--connect", "work", "--key-file", keyFile);
        assertFalse((demo.out() + demo.errors()).contains(SECRET), demo.out()::toString);
    }

    @Test
    void bothEncipheredTextsAreDifferent() {
        play(connecting(adding("work"), "work"), "", WORK);
        demo.run("--connect", "work", "--key-file", keyFile);
        List<String> shown = demo.out().stream().filter(line -> line.contains("crypt1:"))
                .map(line -> line.replaceFirst(".*: ", "")).collect(Collectors.toList());
        assertEquals(2, shown.size());
        assertNotEquals(shown.get(0), shown.get(1));
    }

    @ParameterizedTest
    @CsvSource({
        "work, ': work needs its key; .* --key-file FILE'",
        "office, ': office is protected by WPA2-Enterprise, .*'",
    })
    void isNotAddedWithoutAKey(String ssid, String message) {
        play(new StandIn(), "", WORK, OFFICE);
        assertEquals(1, demo.run("--connect", ssid));
        demo.assertErrors("wifi-demo" + message);
        assertEquals(List.of(), changes());
    }

    @Test
    void anOpenNetworkTakesNoKey() {
        play(new StandIn(), "", CAFE);
        assertEquals(1, demo.run("--connect", "cafe", "--key-file", keyFile));
        demo.assertErrors("wifi-demo: cafe is open and takes no key; .*");
        assertEquals(List.of(), changes());
    }

    @Test
    void aConfiguredNetworkKeepsItsKey() {
        play(connecting(new StandIn(), "home"), HOME, CAFE);
        assertEquals(0, demo.run("--connect", "home", "--key-file", keyFile), demo::errors);
        assertTrue(demo.out().contains("home is configured already, with its own key."));
        assertFalse(changes().toString().contains("psk"));
    }

    @Test
    void aWrongKeyFileEndsTheProgramBeforeAnythingIsShown() throws IOException {
        Files.writeString(folder.resolve("key"), "short\n");
        play(new StandIn(), "", WORK);
        assertEquals(1, demo.run("--connect", "work", "--key-file", keyFile));
        demo.assertErrors("wifi-demo: the first line of .* is too short or too long; .*");
        assertEquals(List.of(), demo.out());
    }

    @Test
    void aCipherThatCannotBeUsedIsExplainedAndTheNetworkRemoved() throws IOException {
        Path cipherKey = Path.of(System.getenv("PLATFORM_KEY_FILE"));
        Files.createDirectories(cipherKey.getParent());
        Files.deleteIfExists(cipherKey);
        Files.writeString(cipherKey, "damaged");
        play(adding("work"), "", WORK);
        try {
            assertEquals(1, demo.run("--connect", "work", "--key-file", keyFile, "--keep"));
        } finally {
            Files.delete(cipherKey);
        }
        assertEquals(1, demo.err().size(), demo::errors);
        assertTrue(demo.errors().contains(cipherKey.toString()), demo::errors);
        demo.assertLast("Added work, .*");
        assertEquals(REMOVED, lastChanges());
    }

    private static List<String> lastChanges() {
        List<String> all = changes();
        return all.subList(Math.max(0, all.size() - REMOVED.size()), all.size());
    }
}
