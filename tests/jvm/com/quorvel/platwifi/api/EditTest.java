package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;

import java.nio.file.Path;
import java.util.List;
import java.util.Set;

class EditTest extends AdapterTest {
    private Network home() {
        return wifi.network("home").get();
    }

    @Test
    void savesAllChangesOfABlockTogether() {
        wifi.edit(edit -> {
            edit.save(home().edit().priority(5).hidden(true).build());
            edit.add(Network.builder("cafe").passphrase(Host.secret()).build());
        });
        List<String> changes = Host.changes();
        assertTrue(changes.containsAll(List.of("set_network 0 priority 5", "set_network 0 scan_ssid 1",
                "set_network 1 key_mgmt WPA-PSK", "set_network 1 psk \"" + Host.SECRET + "\"")),
                changes::toString);
        assertEquals(1, changes.stream().filter("save_config"::equals).count());
    }

    @Test
    void keepsNothingOfABlockOfWhichTheSupplicantRefusesAField() {
        play(new StandIn().when("-iwlan0", "set_network", "0", "ssid", "*").print("OK\n")
                .when("-iwlan0", "set_network", "0", "priority", "5").print("FAIL\n"));
        Passphrase secret = Host.secret();
        String message = Host.failure(Reason.FAILED, () -> wifi.edit(edit -> {
            edit.add(Network.builder("cafe").passphrase(secret).build());
            edit.save(home().edit().identity("me").priority(5).build());
        })).getMessage();
        assertTrue(message.contains("priority"), message);
        assertFalse(Host.changes().contains("save_config"), Host.changes()::toString);
        assertEquals("reconfigure", lastOf(Host.changes()));
        assertEquals(1, wifi.networks().size(), "the new one is not in memory");
        assertEquals(0, home().priority());
        assertTrue(home().identity().isEmpty());
        assertTrue(secret.isClosed());
    }

    @Test
    void keepsNothingOfABlockWithAWrongValue() {
        Host.failure(Reason.WRONG_USE, () -> wifi.edit(edit -> {
            edit.save(home().edit().identity("me").build());
            edit.save(home().edit().priority(-1).build());
        }));
        assertEquals(List.of(), Host.changes(), "all are checked before the first is sent");
        assertTrue(home().identity().isEmpty());
    }

    @Test
    void keepsNothingOfABlockOfWhichOneStepIsNotPossible() {
        Host.failure(Reason.FAILED, () -> wifi.edit(edit -> {
            edit.add(Network.builder("cafe").passphrase(Host.secret()).build());
            edit.remove("other");
        }));
        assertTrue(Host.changes().contains("add_network"), Host.changes()::toString);
        assertEquals("reconfigure", lastOf(Host.changes()));
        assertTrue(wifi.network("cafe").isEmpty());
    }

    @Test
    void sendsNothingIfTheBlockThrows() {
        Passphrase secret = Host.secret();
        assertThrows(IllegalStateException.class, () -> wifi.edit(edit -> {
            edit.add(Network.builder("cafe").passphrase(secret).build());
            throw new IllegalStateException();
        }));
        assertEquals(List.of(), Host.changes());
        assertTrue(secret.isClosed());
    }

    @Test
    void refusesWhatCannotBe() {
        Host.failure(Reason.FAILED, () -> wifi.add(
                Network.builder("home").keyManagement(KeyManagement.NONE).build()));
        Host.failure(Reason.FAILED, () -> wifi.remove("cafe"));
        Host.failure(Reason.FAILED, () -> wifi.save(Network.builder("cafe").priority(1).build()));
        Host.failure(Reason.WRONG_USE, () -> wifi.add(Network.builder("cafe").build()));
        Host.failure(Reason.WRONG_USE, () -> wifi.add(
                Network.builder("cafe").passphrase(Passphrase.of("short".toCharArray())).build()));
        Host.failure(Reason.WRONG_USE, () -> wifi.save(home().edit().property("sid", "x").build()));
        Host.failure(Reason.WRONG_USE, () -> wifi.save(
                home().edit().property("psk", Host.SECRET).build()));
        Host.failure(Reason.WRONG_USE, () -> wifi.save(
                home().edit().wepKey(Passphrase.of("short key".toCharArray())).build()));
        Host.failure(Reason.FAILED, () -> wifi.save(
                home().edit().caCertificate(Path.of("/no/such.pem")).build()));
        assertFalse(Host.changes().contains("save_config"), Host.changes()::toString);
    }

    @Test
    void tellsThatTheFileCannotBeSaved() {
        play(new StandIn().when("-iwlan0", "save_config").print("FAIL\n").exit(1));
        Host.failure(Reason.FAILED, () -> wifi.save(home().edit().priority(5).build()));
        assertEquals(0, home().priority());
    }

    @Test
    void readsNetworks() {
        play(new StandIn()
                .when("-iwlan0", "get_network", "0", "key_mgmt").print("WPA-PSK SAE\n")
                .when("-iwlan0", "get_network", "0", "psk").print("*\n")
                .when("-iwlan0", "get_network", "0", "ieee80211w").print("1\n")
                .when("-iwlan0", "get_network", "0", "priority").print("3\n")
                .when("-iwlan0", "get_network", "0", "scan_ssid").print("1\n"));
        Network home = home();
        assertEquals(Set.of(KeyManagement.WPA_PSK, KeyManagement.SAE), home.keyManagement());
        assertEquals(FrameProtection.OPTIONAL, home.frameProtection());
        assertEquals(3, home.priority());
        assertEquals(Network.Status.ENABLED, home.status());
        assertTrue(home.hidden());
        assertTrue(home.hasPassphrase());
        assertTrue(home.bssid().isEmpty());
        assertEquals("home [WPA-PSK, SAE] ENABLED", home.toString());
    }

    @Test
    void removesANetwork() {
        wifi.remove("home");
        assertTrue(Host.changes().containsAll(List.of("remove_network 0", "save_config")),
                Host.changes()::toString);
    }

    @Test
    void aClosedWifiTakesNoEdit() {
        wifi.close();
        Passphrase secret = Host.secret();
        Host.failure(Reason.CLOSED, () -> wifi.add(Network.builder("cafe").passphrase(secret).build()));
        assertEquals(List.of(), Host.changes());
    }

    private static String lastOf(List<String> texts) {
        return texts.get(texts.size() - 1);
    }
}
