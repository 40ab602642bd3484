package lab;

import static com.quorvel.platwifi.BWifiPlatformService.*;
import static lab.Wifi.WLAN;

import java.io.IOException;

/** After one process has saved, the other one reloads. */
final class OtherProcess {
    private static final String PEERS_SSID = "from-the-peer";

    private OtherProcess() {}

    static void seesWhatIsSaved() throws IOException {
        Network network = Networks.open();
        try (Peer peer = new Peer()) {
            Checks.check("the peer does not have " + network.ssid, !peer.has(network.ssid));
            Checks.check(network.ssid + " is added", network.add());
            Wifi.save();
            Checks.eventually("the peer has it after a reload", () -> peer.has(network.ssid),
                    () -> "it does not");
            Checks.check("the peer adds another", peer.addOpen(PEERS_SSID) && peer.save());
            Checks.eventually("this process has it after a reload", () -> Wifi.ssids().contains(PEERS_SSID),
                    () -> Wifi.ssids().toString());
        }
        Wifi.checkConnects(network);
    }
}
