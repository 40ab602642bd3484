package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

import java.util.Set;

/** Values without a native half. */
class ValuesTest {
    @Test
    void aPassphraseNeverPrintsAndIsOverwritten() {
        char[] characters = "geheim ß".toCharArray();
        Passphrase passphrase = Passphrase.of(characters);
        assertEquals("Passphrase[...]", passphrase.toString());
        byte[] copy = passphrase.copy();
        assertArrayEquals("geheim ß".getBytes(java.nio.charset.StandardCharsets.UTF_8), copy);
        assertEquals('g', characters[0], "the array of the caller stays");
        passphrase.close();
        passphrase.close();
        assertTrue(passphrase.isClosed());
        Host.failure(Reason.WRONG_USE, passphrase::copy);
        Host.failure(Reason.WRONG_USE, () -> Passphrase.of(new char[1]));
        Host.failure(Reason.WRONG_USE, () -> Passphrase.of(new char[] {'\udc00'}));
    }

    @Test
    void aNetworkNeverPrintsItsSecrets() {
        Network network = Network.builder("home").passphrase(Host.secret())
                .keyManagement(KeyManagement.SAE, KeyManagement.WPA_PSK)
                .frameProtection(FrameProtection.OPTIONAL).bssid("02:00:00:00:01:00").build();
        assertTrue(network.hasPassphrase());
        assertFalse(network.hasPassword());
        assertEquals(Set.of(KeyManagement.SAE, KeyManagement.WPA_PSK), network.keyManagement());
        assertEquals("02:00:00:00:01:00", network.bssid().get());
        assertTrue(network.edit().bssid(null).build().bssid().isEmpty());
        assertEquals("home [WPA-PSK, SAE] UNKNOWN", network.toString());
        assertTrue(network.property("psk").isEmpty());
    }

    @Test
    void anEditLeavesTheOldNetworkAsItWas() {
        Network network = Network.builder("home").priority(1).build();
        assertEquals(2, network.edit().priority(2).build().priority());
        assertEquals(1, network.priority());
    }
}
