package demo;

import com.quorvel.platwifi.api.Network;
import com.quorvel.platwifi.api.Ssid;
import com.quorvel.platwifi.api.Wifi;
import com.quorvel.platwifi.api.WifiException;

import java.io.PrintStream;
import java.util.Optional;

/** The network to connect to. One that was not configured is added, and removed by close(). */
final class ChosenNetwork implements AutoCloseable {
    private final Wifi wifi;
    private final Options options;
    private final PrintStream out;
    private final Ssid ssid;
    private final boolean isAdded;
    private boolean isReady;

    private ChosenNetwork(Wifi wifi, Options options, PrintStream out, Ssid ssid, boolean isAdded) {
        this.wifi = wifi;
        this.options = options;
        this.out = out;
        this.ssid = ssid;
        this.isAdded = isAdded;
        isReady = !isAdded;
    }

    /** @param key  null if the user gave none */
    static ChosenNetwork open(Wifi wifi, Options options, Key key, AccessPoints inRange, PrintStream out)
            throws Stop {
        Ssid ssid = options.ssid();
        Optional<Ssid> known = configured(wifi, ssid);
        if (known.isPresent()) {
            out.println(ssid + " is configured already" + (key == null ? "." : ", with its own key."));
            return new ChosenNetwork(wifi, options, out, known.get(), false);
        }
        Protection protection = Protection.of(ssid, inRange.securityOf(ssid), key);
        wifi.add(protection.network());
        out.println("Added " + ssid + ", " + protection + ".");
        return new ChosenNetwork(wifi, options, out, ssid, true);
    }

    Ssid ssid() {
        return ssid;
    }

    /**
     * Shows the key of a new network as it is stored. A network whose key cannot be shown does not stay.
     *
     * @param key  null if the user gave none
     */
    void makeReady(Key key) throws Stop {
        if (isReady)
            return;
        if (key != null)
            StoredKey.show(key, wifi.adapter(), ssid, out);
        isReady = true;
        out.println("Saved " + ssid + ".");
    }

    @Override
    public void close() throws Stop {
        if (!isReady)
            wifi.remove(ssid);
        else if (!options.keep())
            undo();
    }

    /** By the text that is shown: an argument cannot have bytes that are no text. */
    private static Optional<Ssid> configured(Wifi wifi, Ssid wanted) {
        return wifi.networks().stream().map(Network::ssid)
                .filter(ssid -> ssid.text().equals(wanted.text())).findFirst();
    }

    private void undo() throws Stop {
        try {
            wifi.roam(); // also ends an attempt to connect that still runs
            if (isAdded)
                wifi.remove(ssid);
        } catch (WifiException e) {
            throw new Stop("the supplicant did not take back every change; see its networks:"
                    + " wpa_cli -i %s list_networks", wifi.adapter());
        }
        if (isAdded)
            out.println("Removed " + ssid + " again.");
        out.println("All configured networks are enabled; the supplicant chooses among them.");
    }
}
