package demo;

import java.util.ArrayList;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** One access point in range. */
final class ScanResult {
    private static final String MAC = "[0-9a-fA-F]{2}(?::[0-9a-fA-F]{2}){5}";
    private static final Pattern START = Pattern.compile(MAC + "\t.*", Pattern.DOTALL);
    private static final Pattern LINE = Pattern.compile(
            "(?<bssid>" + MAC + ")\t(?<frequency>\\d{1,6})\t(?<signal>-?\\d{1,6})"
                    + "\t(?<flags>[^\t]*)\t(?<ssid>.*)", Pattern.DOTALL);

    /** First and last frequency of a band and the frequency of its channel 0, in MHz. */
    private static final int[][] BANDS = {
        {2412, 2472, 2407},
        {2484, 2484, 2414},
        {5160, 5885, 5000},
        {5935, 5935, 5925},
        {5955, 7115, 5950},
    };

    final String bssid;
    final int frequency;
    final int signal;
    final String security;
    final Ssid ssid;

    private ScanResult(Matcher line) {
        bssid = line.group("bssid");
        frequency = Integer.parseInt(line.group("frequency"));
        signal = Integer.parseInt(line.group("signal"));
        security = Security.words(line.group("flags"));
        ssid = Ssid.fromClient(line.group("ssid"));
    }

    /** The access points of discovered lines; other lines are skipped. */
    static List<ScanResult> parse(String... lines) {
        List<ScanResult> results = new ArrayList<>();
        for (String line : joined(lines)) {
            Matcher match = LINE.matcher(line);
            if (match.matches())
                results.add(new ScanResult(match));
        }
        return results;
    }

    /** The channel number of the frequency, 0 if it is in none of the known bands. */
    int channel() {
        for (int[] band : BANDS) {
            if (frequency >= band[0] && frequency <= band[1] && (frequency - band[2]) % 5 == 0)
                return (frequency - band[2]) / 5;
        }
        return 0;
    }

    /** Joins the pieces of long lines. Only the first piece of a line begins with an address. */
    private static List<String> joined(String... pieces) {
        List<String> lines = new ArrayList<>();
        for (String piece : pieces) {
            int last = lines.size() - 1;
            if (last < 0 || START.matcher(piece).matches())
                lines.add(piece);
            else
                lines.set(last, lines.get(last) + piece);
        }
        return lines;
    }
}
