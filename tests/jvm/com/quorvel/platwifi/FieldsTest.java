package com.quorvel.platwifi;

import static com.quorvel.platwifi.Natives.ofHome;
import static com.quorvel.platwifi.Natives.set;
import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

import java.util.ArrayList;
import java.util.List;

/** Fields of one network: read, changed in memory, and written by a save. */
class FieldsTest {
    private static final String[] TEXTS = {
        "plain", "Café", "e\u0301", "网络", "😀\uD83D\uDC69\u200D\uD83D\uDCBB",
        "caf\uDCE9 \uDCFF\uDC80", "a\"b\\c", " ", "x".repeat(1000),
    };

    @BeforeEach
    void load() {
        Natives.loadHome();
    }

    @AfterEach
    void unload() {
        BWifiPlatformService.unloadWifiSettings0();
    }

    /** The commands of a save for the changed fields, without interface and network id. */
    private static List<String> saved() {
        new StandIn().when("*").print("OK\n").play();
        assertTrue(BWifiPlatformService.saveHostSettings0());
        List<String> sent = new ArrayList<>();
        for (String call : StandIn.calls()) {
            if (call.startsWith("-iwlan0 set_network 0 "))
                sent.add(call.substring("-iwlan0 set_network 0 ".length()));
        }
        return sent;
    }

    @ParameterizedTest
    @CsvSource({
        "setPreferredBssid0, getBssid0, bssid",
        "setEAPIdentity0, getEAPIdentity0, identity",
        "setTunnelPhase10, getTunnelPhase10, phase1",
        "setTunnelPhase20, getTunnelPhase20, phase2",
        "setCACertificate0, getCACertificate0, ca_cert",
        "setCACertificateDir0, getCACertificateDir0, ca_path",
        "setClientCertificate0, getClientCertificate0, client_cert",
        "setPrivateKeyFile0, getPrivateKeyFile0, private_key",
        "setCACertificate20, getCACertificate20, ca_cert2",
        "setCACertificateDir20, getCACertificateDir20, ca_path2",
        "setClientCertificate20, getClientCertificate20, client_cert2",
        "setPrivateKeyFile20, getPrivateKeyFile20, private_key2",
    })
    void aTextIsChangedReadAndSaved(String setter, String getter, String key) {
        set(setter, (String) null);
        assertNull(ofHome(getter));
        for (String text : TEXTS) {
            assertTrue(set(setter, text), text);
            assertFalse(set(setter, text), "the same again: " + text);
            assertEquals(text, ofHome(getter));
        }
        assertTrue(set(setter, "caf\uDCE9 网"));
        String value = StandIn.recorded("caf\uDCE9 网");
        String sent = key.equals("bssid") ? value : "\"" + value + "\"";
        assertTrue(saved().contains(key + " " + sent));
        assertTrue(set(setter, ""));
        assertEquals("", ofHome(getter));
        assertTrue(set(setter, "x"));
        assertTrue(set(setter, (String) null));
        assertNull(ofHome(getter));
        assertFalse(set(setter, (String) null));
    }

    // API-1
    @Test
    void theAnonymousIdentityIsWrittenAndReadAsTheIdentity() {
        assertTrue(set("setEAPIdentity0", "me"));
        assertTrue(set("setEAPAnonymousIdentity0", "网络\uDCE9"));
        assertFalse(set("setEAPAnonymousIdentity0", "网络\uDCE9"));
        assertEquals("me", ofHome("getEAPAnonymousIdentity0"));
        assertEquals("me", ofHome("getEAPIdentity0"));
        assertEquals(List.of("identity \"me\"",
                "anonymous_identity \"" + StandIn.recorded("网络\uDCE9") + "\""), saved());
    }

    @ParameterizedTest
    @CsvSource({
        "setAuthentication0, getAuthentication0, 2, 2, auth_alg SHARED",
        "setKeyManagement0, getKeyManagement0, 4, 4, key_mgmt WPA-EAP",
        "setProtocol0, getProtocol0, 2, 2, proto RSN",
        "setEAPMethod0, getEAPMethod0, 1024, 1024, eap FAST",
        "setPriority0, getPriority0, 5, 5, priority 5",
        "setPriority0, getPriority0, 300, 44, priority 44",
        "setPriority0, getPriority0, -1, 255, priority 255",
        "setNetworkMode0, getNetworkMode0, 1, 1, mode 1",
        "setNetworkMode0, getNetworkMode0, 257, 1, mode 1",
        "setNetworkMode0, getNetworkMode0, -1, 255, mode 255",
    })
    void aNumberIsChangedReadAndSaved(String setter, String getter, int given, int read,
            String sent) {
        assertTrue(set(setter, given));
        assertFalse(set(setter, given), "the same again");
        assertEquals(read, ofHome(getter));
        assertEquals(List.of(sent), saved());
    }

    @ParameterizedTest
    @CsvSource({
        "setAuthentication0, getAuthentication0",
        "setKeyManagement0, getKeyManagement0",
        "setProtocol0, getProtocol0",
        "setEAPMethod0, getEAPMethod0",
        "setSignalStrength0, getStrength0",
    })
    void aNumberIsPassedBitForBit(String setter, String getter) {
        for (int number : new int[] {-1, Integer.MIN_VALUE, Integer.MAX_VALUE, 0}) {
            assertTrue(set(setter, number));
            assertEquals(number, ofHome(getter));
        }
    }

    @Test
    void aPriorityOf256IsZero() {
        assertTrue(set("setPriority0", 5));
        assertTrue(set("setPriority0", 256));
        assertEquals(0, ofHome("getPriority0"));
    }

    @ParameterizedTest
    @CsvSource({"setSignalStrength0, getStrength0", "setNetworkStatus0, getNetworkStatus0"})
    void aFactIsKeptAndNeverSaved(String setter, String getter) {
        assertTrue(set(setter, 5));
        assertTrue(set(setter, 5), "also the same again");
        assertEquals(5, ofHome(getter));
        assertEquals(List.of(), saved());
    }

    @ParameterizedTest
    @CsvSource({"true, scan_ssid 0", "false, scan_ssid 1"})
    void theSsidIsBroadcastOrHidden(boolean value, String sent) {
        assertTrue(set("setSsidBroadcasted0", value));
        assertTrue(set("setSsidBroadcasted0", value), "also the same again");
        assertEquals(value, ofHome("getSsidBroadcasted0"));
        assertEquals(List.of(sent), saved());
    }

    /** 6 and 30 are the supplicant's defaults. */
    @ParameterizedTest
    @CsvSource({
        "6, 6, pairwise CCMP;group TKIP",
        "16, 22, group WEP40",
        "8, 14, group WEP104",
        "1, 31, pairwise NONE",
        "4, 4, pairwise CCMP;group CCMP",
        "2, 2, pairwise TKIP;group TKIP",
    })
    void theEncryptionIsSplitIntoCiphers(int code, int all, String sent) {
        assertEquals(30, ofHome("getSupportedEncrytptionMethods0"));
        assertTrue(set("setEncryption0", code));
        assertFalse(set("setEncryption0", code), "the same again");
        assertEquals(all, ofHome("getSupportedEncrytptionMethods0"));
        assertEquals(List.of(sent.split(";")), saved());
    }

    @Test
    void theGroupCiphersStayIfThePairwiseOnesAreUnchanged() {
        assertTrue(set("setEncryption0", 4));
        assertTrue(set("setEncryption0", 8));
        assertFalse(set("setEncryption0", 4));
        assertEquals(12, ofHome("getSupportedEncrytptionMethods0"));
    }

    @Test
    void wepKeysArePlainText() {
        assertArrayEquals(new String[] {"", "", "", ""}, (String[]) ofHome("getWepKeys0"));
        assertTrue(set("setWepKey0", 1, "secret"));
        assertTrue(set("setWepKey0", 1, "secret"), "also the same again");
        assertTrue(set("setWepKey0", 3, "caf\uDCE9 网😀"));
        assertArrayEquals(new String[] {"", "secret", "", "caf\uDCE9 网😀"},
                (String[]) ofHome("getWepKeys0"));
        assertEquals(List.of("wep_key1 \"secret\"",
                "wep_key3 \"" + StandIn.recorded("caf\uDCE9 网😀") + "\""), saved());
        assertTrue(set("setWepKey0", 3, ""));
        assertTrue(set("setWepKey0", 1, null));
        assertArrayEquals(new String[] {"", "", "", ""}, (String[]) ofHome("getWepKeys0"));
    }

    @ParameterizedTest
    @ValueSource(ints = {4, -1, 256, Integer.MAX_VALUE, Integer.MIN_VALUE})
    void aWepSlotThatIsNoneIsTrueAndChangesNothing(int slot) {
        assertTrue(set("setWepKey0", slot, "secret"));
        assertTrue(set("setWepIndex0", slot));
        assertEquals(0, ofHome("getWepIndex0"));
        assertArrayEquals(new String[] {"", "", "", ""}, (String[]) ofHome("getWepKeys0"));
        assertEquals(List.of(), saved());
    }

    @Test
    void theWepIndexIsAlwaysTrue() {
        assertTrue(set("setWepIndex0", 3));
        assertTrue(set("setWepIndex0", 3));
        assertEquals(3, ofHome("getWepIndex0"));
        assertEquals(List.of("wep_tx_keyidx 3"), saved());
        assertTrue(BWifiPlatformService.setWepIndex0("wlan0", "unknown", 1));
        assertTrue(BWifiPlatformService.setWepKey0("wlan0", "unknown", 1, "secret"));
        assertFalse(BWifiPlatformService.setProtocol0("wlan0", "unknown", 1));
    }

    @ParameterizedTest
    @CsvSource({
        "auth_alg, SHARED, getAuthentication0, 2",
        "eap, TTLS, getEAPMethod0, 4",
        "proto, RSN, getProtocol0, 2",
        "key_mgmt, WPA-PSK, getKeyManagement0, 2",
        "priority, 7, getPriority0, 7",
        "mode, 1, getNetworkMode0, 1",
        "pairwise, TKIP, getSupportedEncrytptionMethods0, 30",
        "scan_ssid, 0, getSsidBroadcasted0, true",
        "scan_ssid, 1, getSsidBroadcasted0, false",
        "bssid, 02:00:00:00:00:01, getBssid0, 02:00:00:00:00:01",
        "identity, \"me\", getEAPIdentity0, me",
        "phase1, \"a=b\", getTunnelPhase10, a=b",
        "private_key2, \"/k\", getPrivateKeyFile20, /k",
    })
    void whatTheSupplicantHasIsRead(String key, String value, String getter, String read) {
        Natives.load(new StandIn().when("-iwlan0", "get_network", "0", key).print(value + "\n"),
                Natives.HOME);
        assertEquals(read, String.valueOf(ofHome(getter)));
    }
}
