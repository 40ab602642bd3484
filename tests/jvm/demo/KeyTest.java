package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.Timeout;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;
import org.junit.jupiter.params.provider.ValueSource;

import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.stream.Stream;

class KeyTest {
    private static final InputStream NOTHING = InputStream.nullInputStream();
    private static final String NEXT_STEP =
            "; write the key there: 8 to 63 characters or 64 hexadecimal digits";

    @TempDir
    Path folder;

    static Stream<String> keys() {
        return Stream.of("12345678", "correct horse", " blanks ", "网络密码", "x".repeat(63),
                "0123456789abcdefABCDEF".repeat(3).substring(0, 64));
    }

    @ParameterizedTest
    @MethodSource("keys")
    void theFirstLineIsTheKey(String key) throws Exception {
        for (String end : new String[] {"", "\n", "\r\n", "\nanother line\n"})
            assertEquals(key, Key.read(file(key + end), NOTHING).plain());
    }

    @Test
    void aDashIsStandardInput() throws Stop {
        assertEquals("correct horse", Key.read("-", input("correct horse\nmore\n")).plain());
    }

    @Test
    void nothingBehindTheLineIsTakenFromStandardInput() throws Exception {
        InputStream input = input("correct horse\nmore\n");
        Key.read("-", input);
        assertEquals("more\n", new String(input.readAllBytes(), StandardCharsets.UTF_8));
    }

    static Stream<String> wrongLengths() {
        return Stream.of("seven 7", "x".repeat(64), "x".repeat(65), "0".repeat(63) + "g",
                "0".repeat(65), "x".repeat(5000), "网络".repeat(11));
    }

    @ParameterizedTest
    @MethodSource("wrongLengths")
    void anotherLengthIsExplainedWithoutTheKey(String wrong) throws IOException {
        String file = file(wrong + "\n");
        assertEquals("the first line of " + file + " is too short or too long" + NEXT_STEP,
                explained(file));
    }

    @ParameterizedTest
    @ValueSource(strings = {"", "\n", "\r\n", "\ncorrect horse\n"})
    void anEmptyLineIsExplained(String text) throws IOException {
        assertTrue(explained(file(text)).endsWith(" is empty" + NEXT_STEP));
    }

    @ParameterizedTest
    @ValueSource(strings = {"correct\thorse", "correct\0horse", "correct \u0085 horse"})
    void controlCharactersAreExplainedWithoutTheKey(String text) throws IOException {
        assertTrue(explained(file(text)).endsWith(" holds control characters" + NEXT_STEP));
    }

    @Test
    void bytesThatAreNoTextAreExplained() throws IOException {
        Path file = Files.write(folder.resolve("key"), new byte[] {'c', 'a', 'f', (byte) 0xe9});
        assertTrue(explained(file.toString()).endsWith(" is not UTF-8" + NEXT_STEP));
    }

    @Test
    void aMissingFileIsExplained() {
        String missing = folder.resolve("nothing").toString();
        String message = explained(missing);
        assertTrue(message.startsWith("the key cannot be read: " + missing), message);
        assertTrue(message.endsWith("; name a readable file whose first line is the key"), message);
    }

    @Test
    void aFolderIsExplained() {
        String message = explained(folder.toString());
        assertTrue(message.startsWith("the key cannot be read: " + folder), message);
    }

    @Test
    @Timeout(600)
    void anEndlessFileIsNotReadToItsEnd() {
        assertTrue(explained("/dev/zero").contains("control characters"));
    }

    @Test
    void standardInputIsNamed() {
        Stop stop = assertThrows(Stop.class, () -> Key.read("-", NOTHING));
        assertEquals("the first line of standard input is empty" + NEXT_STEP, stop.getMessage());
    }

    @Test
    void aKeyHasNoTextForm() throws Stop {
        assertFalse(Key.read("-", input("correct horse\n")).toString().contains("horse"));
    }

    private static String explained(String file) {
        Stop stop = assertThrows(Stop.class, () -> Key.read(file, NOTHING));
        assertEquals(1, stop.status);
        return stop.getMessage();
    }

    private String file(String text) throws IOException {
        return Files.writeString(folder.resolve("key"), text).toString();
    }

    private static InputStream input(String text) {
        return new ByteArrayInputStream(text.getBytes(StandardCharsets.UTF_8));
    }
}
