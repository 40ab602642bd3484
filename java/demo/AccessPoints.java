package demo;

import com.quorvel.platwifi.api.AccessPoint;
import com.quorvel.platwifi.api.Ssid;
import com.quorvel.platwifi.api.Wifi;

import java.io.PrintStream;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The access points in range, strongest first. */
final class AccessPoints {
    private final List<AccessPoint> found;

    private AccessPoints(List<AccessPoint> found) {
        this.found = found;
    }

    static AccessPoints scan(Wifi wifi, PrintStream out) throws Stop {
        List<AccessPoint> found = Progress.during(out, "Scanning on " + wifi.adapter(),
                show -> wifi.scan());
        if (found.isEmpty())
            throw new Stop("%s found no access point; see whether its radio is on (rfkill list) and"
                    + " one is in range, then try again", wifi.adapter());
        return new AccessPoints(found);
    }

    void print(PrintStream out) {
        Table table = new Table()
                .column("SSID", Table.Align.LEFT)
                .column("BSSID", Table.Align.LEFT)
                .column("Channel", Table.Align.RIGHT)
                .column("MHz", Table.Align.RIGHT)
                .column("dBm", Table.Align.RIGHT)
                .column("Security", Table.Align.LEFT);
        for (AccessPoint ap : found)
            table.row(ap.ssid(), ap.bssid(), channel(ap), ap.frequency(), ap.signal(), ap.offered());
        table.print(out);
    }

    /** The kinds of security that the access points of a network offer; empty out of range. */
    Set<String> securityOf(Ssid ssid) {
        return found.stream().filter(ap -> ap.ssid().equals(ssid))
                .flatMap(ap -> Stream.of(ap.offered().split("/")))
                .collect(Collectors.toCollection(LinkedHashSet::new));
    }

    private static String channel(AccessPoint ap) {
        return ap.channel() == 0 ? "?" : Integer.toString(ap.channel());
    }
}
