package com.quorvel.platwifi;

import static com.quorvel.platwifi.Natives.ofHome;
import static com.quorvel.platwifi.Natives.set;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

import java.lang.annotation.Retention;
import java.lang.annotation.RetentionPolicy;

/** Secrets of a network, which natives take and return enciphered. */
class SecretsTest {
    @Retention(RetentionPolicy.RUNTIME)
    @ParameterizedTest(name = "{0}")
    @CsvSource({
        "PreSharedKey0, psk",
        "EAPPassword0, password",
        "PrivateKeyPassword0, private_key_passwd",
        "PrivateKeyPassword20, private_key_passwd2",
    })
    @interface EachSecret {}

    @BeforeEach
    void load() {
        Natives.loadHome();
    }

    @AfterEach
    void unload() {
        BWifiPlatformService.unloadWifiSettings0();
    }

    private static String read(String secret) {
        String enciphered = (String) ofHome("get" + secret);
        return enciphered == null ? null : PlatformCrypt.decrypt(enciphered);
    }

    private static boolean write(String secret, String plain) {
        return set("set" + secret, PlatformCrypt.encrypt(plain));
    }

    @EachSecret
    void whatIsEncipheredIsTakenAndComesBackEnciphered(String secret, String key) {
        for (String plain : new String[] {"correct horse", "Café 网络 😀", "caf\uDCE9\uDCFF"}) {
            assertTrue(write(secret, plain));
            assertFalse(write(secret, plain), "the same again");
            assertFalse(((String) ofHome("get" + secret)).contains(plain));
            assertNotEquals(ofHome("get" + secret), ofHome("get" + secret));
            assertEquals(plain, read(secret));
        }
    }

    @EachSecret
    void theSupplicantGetsItInPlain(String secret, String key) {
        assertTrue(write(secret, "caf\uDCE9 horse"));
        assertTrue(BWifiPlatformService.saveHostSettings0());
        String sent = StandIn.recorded("caf\uDCE9 horse");
        assertEquals("-iwlan0 set_network 0 " + key + " \"" + sent + "\"", StandIn.calls().get(0));
    }

    @EachSecret
    void whatTheSupplicantHasIsReadEnciphered(String secret, String key) {
        Natives.load(new StandIn().when("-iwlan0", "get_network", "0", key).print("\"hush\"\n"),
                Natives.HOME);
        assertNotEquals("hush", ofHome("get" + secret));
        assertEquals("hush", read(secret));
    }

    @EachSecret
    void whatIsUnsetIsNull(String secret, String key) {
        assertNull(ofHome("get" + secret));
    }

    @EachSecret
    void nothingClears(String secret, String key) {
        write(secret, "hush");
        assertTrue(set("set" + secret, ""));
        assertFalse(set("set" + secret, ""));
        assertEquals("", read(secret));
        write(secret, "hush");
        assertTrue(set("set" + secret, (String) null));
        assertNull(ofHome("get" + secret));
    }

    @EachSecret
    void aTextThatDoesNotDecipherIsAnExceptionAndTheOldValueStays(String secret, String key) {
        write(secret, "hush");
        for (String wrong : new String[] {"in plain", "crypt1:", "crypt9:AAAA", "网络", "\uD800"}) {
            Exception error = assertThrows(RuntimeException.class,
                    () -> set("set" + secret, wrong));
            assertFalse(error.getMessage().isEmpty());
            assertFalse(error.getMessage().contains("in plain"), error.getMessage());
            assertEquals("hush", read(secret));
        }
    }

    @EachSecret
    void anotherNetworkHasItsOwn(String secret, String key) {
        Natives.load(new StandIn(), Natives.HOME, "1\twork\tany\t");
        write(secret, "hush");
        assertNull(Natives.call(Natives.named("get" + secret), "wlan0", "work"));
    }
}
