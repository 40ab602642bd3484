package bench;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.Arrays;
import java.util.function.ToIntBiFunction;

/**
 * Times a getter of the library and a bare native in turn: a line a round, with the nanoseconds
 * that a call of each took.
 */
public final class NativeCall {
    private static final int WARM_UP_ROUNDS = 2;
    private static final int TURNS = 25; // a round
    private static final int CALLS = 2_000; // a turn: so short that few are disturbed

    private final ToIntBiFunction<String, String> call;
    private final String iface;
    private final String ssid;
    private final long[] nanoseconds = new long[TURNS];

    private NativeCall(ToIntBiFunction<String, String> call, String iface, String ssid) {
        this.call = call;
        this.iface = iface;
        this.ssid = ssid;
    }

    /**
     * @param arguments the library of the bare natives; "text" or "number", which says what the
     *     getter returns; an adapter, an SSID, the number of rounds
     */
    public static void main(String[] arguments) {
        System.load(arguments[0]);
        String iface = arguments[2];
        String ssid = arguments[3];
        boolean isText = arguments[1].equals("text");
        NativeCall getter = new NativeCall(isText ? NativeCall::bssid : NativeCall::priority, iface, ssid);
        NativeCall bare = new NativeCall(isText ? NativeCall::text : NativeCall::number, iface, ssid);
        if (getter.call() != bare.call())
            throw new IllegalStateException("the two natives return something different");
        for (int round = 0; round < WARM_UP_ROUNDS; round++)
            measure(getter, bare);
        for (int round = Integer.parseInt(arguments[4]); round > 0; round--)
            System.out.println(measure(getter, bare));
        BWifiPlatformService.unloadWifiSettings0();
    }

    // What a call returns, as a number.

    private static int bssid(String iface, String ssid) {
        return BWifiPlatformService.getBssid0(iface, ssid).length();
    }

    private static int text(String iface, String ssid) {
        return BareNative.text(iface, ssid).length();
    }

    private static int priority(String iface, String ssid) {
        return BWifiPlatformService.getPriority0(iface, ssid);
    }

    private static int number(String iface, String ssid) {
        return BareNative.number(iface, ssid);
    }

    private static String measure(NativeCall getter, NativeCall bare) {
        for (int turn = 0; turn < TURNS; turn++) {
            getter.take(turn);
            bare.take(turn);
        }
        return getter.median() + " " + bare.median();
    }

    private int call() {
        return call.applyAsInt(iface, ssid);
    }

    // The sum keeps the results from being dropped.
    private void take(int turn) {
        long sum = 0;
        long begin = System.nanoTime();
        for (int i = 0; i < CALLS; i++)
            sum += call();
        nanoseconds[turn] = System.nanoTime() - begin;
        if (sum == 0)
            throw new IllegalStateException("no result");
    }

    private double median() {
        Arrays.sort(nanoseconds);
        return (double) nanoseconds[TURNS / 2] / CALLS;
    }
}
