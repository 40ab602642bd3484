package lab;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.stream.Collectors;

/** A row of the table of the access points. */
final class AccessPoint {
    private static final Path TABLE = Path.of(Host.variable("LAB_AP_TABLE"));

    final PrintedSsid ssid;
    final String bssid;
    final int frequency;
    final String kind;

    private AccessPoint(String[] columns) {
        ssid = new PrintedSsid(columns[0]);
        bssid = columns[1];
        frequency = Integer.parseInt(columns[2]);
        kind = columns[3];
    }

    static List<AccessPoint> all() {
        try {
            return Files.readAllLines(TABLE).stream().map(row -> new AccessPoint(row.split("\t")))
                    .collect(Collectors.toList());
        } catch (IOException cause) {
            throw new IllegalStateException(cause);
        }
    }

    /** All that have the SSID of this one. */
    List<AccessPoint> ofTheSameNetwork() {
        return all().stream().filter(other -> other.ssid.printed.equals(ssid.printed))
                .collect(Collectors.toList());
    }
}
