package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.io.PrintStream;
import java.util.Comparator;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The access points in range, strongest first. */
final class AccessPoints {
    private final List<ScanResult> results;

    private AccessPoints(List<ScanResult> results) {
        this.results = results;
    }

    static AccessPoints scan(String iface, PrintStream out) throws Stop {
        String[] lines = Progress.during(out, "Scanning on " + iface,
                show -> BWifiPlatformService.discoverNetworks0(iface));
        if (lines == null)
            throw new Stop("the supplicant does not scan on %s; see which interfaces it serves:"
                    + " wpa_cli interface", iface);
        List<ScanResult> results = ScanResult.parse(lines);
        if (results.isEmpty())
            throw new Stop("%s found no access point; see whether its radio is on (rfkill list) and"
                    + " one is in range, then try again", iface);
        results.sort(Comparator.comparingInt((ScanResult result) -> result.signal).reversed());
        return new AccessPoints(results);
    }

    void print(PrintStream out) {
        Table table = new Table()
                .column("SSID", Table.Align.LEFT)
                .column("BSSID", Table.Align.LEFT)
                .column("Channel", Table.Align.RIGHT)
                .column("MHz", Table.Align.RIGHT)
                .column("dBm", Table.Align.RIGHT)
                .column("Security", Table.Align.LEFT);
        for (ScanResult result : results)
            table.row(result.ssid, result.bssid, channel(result), result.frequency, result.signal,
                    result.security);
        table.print(out);
    }

    /** The kinds of security that the access points of a network announce; empty out of range. */
    Set<String> securityOf(String ssid) {
        return results.stream().filter(result -> result.ssid.toString().equals(ssid))
                .flatMap(result -> Stream.of(result.security.split("/")))
                .collect(Collectors.toCollection(LinkedHashSet::new));
    }

    private static String channel(ScanResult result) {
        return result.channel() == 0 ? "?" : Integer.toString(result.channel());
    }
}
