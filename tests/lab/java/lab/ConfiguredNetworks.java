package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import java.io.IOException;
import java.util.List;

/** Networks of every kind: what the file contains after a save, and whether they connect. */
final class ConfiguredNetworks {
    private static final Network OPEN = Networks.open();
    private static final Network PSK = Networks.psk(Networks.PASSPHRASE);
    private static final Network HIDDEN = Networks.hidden();
    private static final Network WEP = Networks.wep(0);
    private static final Network PEAP = Networks.peap(Networks.PASSWORD);

    private ConfiguredNetworks() {}

    static void savedAndConnectedTo() throws IOException {
        Network otherWep = Networks.wep(1);
        Wifi.configure(OPEN, PSK, HIDDEN, otherWep, PEAP);
        ConfigurationFile.checkHolds("the file holds what was set", OPEN, PSK, HIDDEN, otherWep,
                PEAP);
        Supplicant.restart();
        Checks.equal("a supplicant that is started again has them",
                List.of(OPEN.ssid, PSK.ssid, HIDDEN.ssid, WEP.ssid, PEAP.ssid), Supplicant.ssids());
        oneFieldEdited();
        for (Network network : List.of(PEAP, WEP, HIDDEN, PSK, OPEN))
            Wifi.checkConnects(network);
        theFirstRemoved();
    }

    /** One after the other, because they have the same SSID. */
    static void tunnelAndCertificate() {
        for (Network network : List.of(Networks.ttls(), Networks.tls("client.pem"))) {
            Wifi.configure(network);
            ConfigurationFile.checkHolds(network.title + ": the file holds what was set", network);
            Wifi.checkConnects(network);
        }
    }

    private static void oneFieldEdited() throws IOException {
        try (WatchedClient client = new WatchedClient()) {
            setWepIndex0(WLAN, WEP.ssid, 0);
            Wifi.save();
            Checks.equal("only the edited field is written",
                    List.of("list_networks", "set_network wep_tx_keyidx", "save_config",
                            "reconfigure"),
                    client.commands());
        }
        ConfigurationFile.checkHolds("the file holds the edited field and all that was set before",
                OPEN, PSK, HIDDEN, WEP, PEAP);
    }

    /** After the save the supplicant assigns new ids to the others. */
    private static void theFirstRemoved() {
        Checks.check("the first is removed", removeNetwork0(WLAN, OPEN.ssid));
        Wifi.save();
        Wifi.checkConnects(PSK);
    }
}
