package com.quorvel.platwifi;

import static com.quorvel.platwifi.PlatformCrypt.decrypt;
import static com.quorvel.platwifi.PlatformCrypt.encrypt;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermissions;

class PlatformCryptTest {
    private static final Path KEY_FILE = Path.of(System.getenv("PLATFORM_KEY_FILE"));
    private static final int MAXIMUM = 1 << 20;

    /** The first encryption of each test creates a new key. */
    @BeforeEach
    @AfterEach
    void removeKey() throws IOException {
        Files.deleteIfExists(KEY_FILE);
    }

    @ParameterizedTest
    @ValueSource(strings = {
        "", "a", "correct horse battery staple", "Café", "e\u0301", "网络密码", "😀👩\u200D💻",
        "caf\uDCE9", "\uDC80\uDCFF\uDCFE", "\u0001\n\t\u007f", " ", "crypt1:AAAA",
        "\u202Eleft", "\uFFFD",
    })
    void anyTextComesBack(String plain) {
        String enciphered = encrypt(plain);
        assertTrue(enciphered.matches("[!-~]+"), enciphered);
        assertTrue(plain.isBlank() || plain.length() == 1 || !enciphered.contains(plain));
        assertEquals(plain, decrypt(enciphered));
    }

    @Test
    void eachEncryptionGivesAnotherText() {
        assertNotEquals(encrypt("hush"), encrypt("hush"));
    }

    @Test
    void theLongestTextIsOneMebibyte() {
        String longest = "x".repeat(MAXIMUM);
        assertEquals(longest, decrypt(encrypt(longest)));
        assertExplained("shorten it", () -> encrypt(longest + "x"));
    }

    /** Deciphering would not return the same text. */
    @ParameterizedTest
    @ValueSource(strings = {
        "a\0b", "\0", "\uD800", "\uDBFFx", "\uDC00", "\uDC7F", "\uDD00", "\uDFFF",
    })
    void whatCannotComeBackIsRefused(String plain) {
        Exception error = assertThrows(IllegalArgumentException.class, () -> encrypt(plain));
        assertFalse(error.getMessage().contains(plain));
    }

    @Test
    void nullIsRefused() {
        assertThrows(NullPointerException.class, () -> encrypt(null));
        assertThrows(NullPointerException.class, () -> decrypt(null));
    }

    @ParameterizedTest
    @ValueSource(strings = {
        "", "hush", "crypt1:", "crypt1:AAAA", "crypt1:hush hush", "crypt1:网", "\uD800",
    })
    void whatIsNotEncipheredIsRefused(String text) {
        encrypt("there is a key");
        assertExplained("not an enciphered text", () -> decrypt(text));
    }

    @Test
    void aTextOfAnotherVersionIsRefused() {
        assertExplained("another version", () -> decrypt("crypt2:AAAA"));
    }

    /** Any character that is changed, removed or added. */
    @Test
    void aDamagedTextIsRefused() {
        String good = encrypt("hush");
        for (int i = 0; i < good.length(); ++i) {
            char other = good.charAt(i) == 'A' ? 'B' : 'A';
            String head = good.substring(0, i);
            String tail = good.substring(i + 1);
            for (String damaged : new String[] {head + other + tail, head + tail, head})
                assertExplained("", () -> decrypt(damaged));
        }
        assertExplained("", () -> decrypt(good + "A"));
        assertEquals("hush", decrypt(good));
    }

    @Test
    void anotherKeyIsReported() throws IOException {
        String enciphered = encrypt("hush");
        Path aside = KEY_FILE.resolveSibling("aside");
        Files.move(KEY_FILE, aside);
        assertExplained("no key", () -> decrypt(enciphered));
        encrypt("makes another key");
        assertExplained("another key", () -> decrypt(enciphered));
        Files.delete(KEY_FILE);
        Files.move(aside, KEY_FILE);
        assertEquals("hush", decrypt(enciphered));
    }

    @Test
    void aKeyThatOthersCanReadIsRefused() throws IOException {
        String enciphered = encrypt("hush");
        Files.setPosixFilePermissions(KEY_FILE, PosixFilePermissions.fromString("rw-r--r--"));
        assertExplained(KEY_FILE.toString(), () -> decrypt(enciphered));
        assertExplained(KEY_FILE.toString(), () -> encrypt("hush"));
    }

    private interface Attempt {
        String run();
    }

    private static void assertExplained(String cause, Attempt attempt) {
        Exception error = assertThrows(RuntimeException.class, attempt::run);
        assertEquals(RuntimeException.class, error.getClass());
        assertTrue(error.getMessage().contains(cause), error.getMessage());
        assertFalse(error.getMessage().contains("hush"), error.getMessage());
    }
}
