package bench;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.function.BinaryOperator;

/**
 * Times a getter of the library and an empty native in turn: a line a round, with the nanoseconds
 * that a call of each took.
 */
public final class NativeCall {
    private static final int WARM_UP_CALLS = 100_000;
    private static final int CALLS = 50_000;

    private NativeCall() {}

    public static void main(String[] arguments) {
        System.load(arguments[0]);
        String iface = arguments[1];
        String ssid = arguments[2];
        expect(arguments[3], BWifiPlatformService.getBssid0(iface, ssid));
        expect(arguments[3], EmptyNative.text(iface, ssid));
        time(BWifiPlatformService::getBssid0, iface, ssid, WARM_UP_CALLS);
        time(EmptyNative::text, iface, ssid, WARM_UP_CALLS);
        for (int round = Integer.parseInt(arguments[4]); round > 0; round--) {
            System.out.println(time(BWifiPlatformService::getBssid0, iface, ssid, CALLS)
                    + " " + time(EmptyNative::text, iface, ssid, CALLS));
        }
        BWifiPlatformService.unloadWifiSettings0();
    }

    private static void expect(String expected, String text) {
        if (!expected.equals(text))
            throw new IllegalStateException("expected " + expected + ", got " + text);
    }

    /** Nanoseconds a call. The sum of lengths keeps the results from being dropped. */
    private static double time(BinaryOperator<String> call, String iface, String ssid, int calls) {
        long length = 0;
        long begin = System.nanoTime();
        for (int i = 0; i < calls; i++)
            length += call.apply(iface, ssid).length();
        long end = System.nanoTime();
        if (length == 0)
            throw new IllegalStateException("no text");
        return (double) (end - begin) / calls;
    }
}
