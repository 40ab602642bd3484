package bench;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.Arrays;
import java.util.function.BinaryOperator;

/**
 * Times a getter of the library and an empty native in turn: a line a round, with the nanoseconds
 * that a call of each took.
 */
public final class NativeCall {
    private static final int WARM_UP_ROUNDS = 2;
    private static final int TURNS = 25; // a round
    private static final int CALLS = 2_000; // a turn: so short that few are disturbed

    private final BinaryOperator<String> call;
    private final String iface;
    private final String ssid;
    private final long[] nanoseconds = new long[TURNS];

    private NativeCall(BinaryOperator<String> call, String iface, String ssid) {
        this.call = call;
        this.iface = iface;
        this.ssid = ssid;
    }

    public static void main(String[] arguments) {
        System.load(arguments[0]);
        String iface = arguments[1];
        String ssid = arguments[2];
        NativeCall getter = new NativeCall(BWifiPlatformService::getBssid0, iface, ssid);
        NativeCall empty = new NativeCall(EmptyNative::text, iface, ssid);
        getter.expect(arguments[3]);
        empty.expect(arguments[3]);
        for (int round = 0; round < WARM_UP_ROUNDS; round++)
            measure(getter, empty);
        for (int round = Integer.parseInt(arguments[4]); round > 0; round--)
            System.out.println(measure(getter, empty));
        BWifiPlatformService.unloadWifiSettings0();
    }

    private static String measure(NativeCall getter, NativeCall empty) {
        for (int turn = 0; turn < TURNS; turn++) {
            getter.take(turn);
            empty.take(turn);
        }
        return getter.median() + " " + empty.median();
    }

    private void expect(String expected) {
        String text = call.apply(iface, ssid);
        if (!expected.equals(text))
            throw new IllegalStateException("expected " + expected + ", got " + text);
    }

    // The sum of lengths keeps the results from being dropped.
    private void take(int turn) {
        long length = 0;
        long begin = System.nanoTime();
        for (int i = 0; i < CALLS; i++)
            length += call.apply(iface, ssid).length();
        nanoseconds[turn] = System.nanoTime() - begin;
        if (length == 0)
            throw new IllegalStateException("no text");
    }

    private double median() {
        Arrays.sort(nanoseconds);
        return (double) nanoseconds[TURNS / 2] / CALLS;
    }
}
