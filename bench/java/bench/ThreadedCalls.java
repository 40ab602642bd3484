package bench;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;

/**
 * Calls a getter of the library from several threads at the same time: a line for each number of
 * threads and each round, with the number of threads and the calls a second of all of them.
 */
public final class ThreadedCalls {
    private static final int[] THREADS = {1, 2, 4, 8, 16, 32};
    private static final long ROUND_NANOSECONDS = 200_000_000;

    private final String iface;
    private final String ssid;
    private final String expected;

    private ThreadedCalls(String iface, String ssid, String expected) {
        this.iface = iface;
        this.ssid = ssid;
        this.expected = expected;
    }

    public static void main(String[] arguments) throws Exception {
        ThreadedCalls calls = new ThreadedCalls(arguments[0], arguments[1], arguments[2]);
        calls.rate(1); // compiles
        for (int threads : THREADS) {
            for (int round = Integer.parseInt(arguments[3]); round > 0; round--)
                System.out.println(threads + " " + calls.rate(threads));
        }
        BWifiPlatformService.unloadWifiSettings0();
    }

    private double rate(int threads) throws Exception {
        long begin = System.nanoTime();
        long end = begin + ROUND_NANOSECONDS;
        long calls = 0;
        ExecutorService pool = Executors.newFixedThreadPool(threads);
        List<Callable<Long>> work = new ArrayList<>();
        for (int i = 0; i < threads; i++)
            work.add(() -> callUntil(end));
        for (Future<Long> result : pool.invokeAll(work))
            calls += result.get();
        double seconds = (System.nanoTime() - begin) * 1e-9;
        pool.shutdown();
        return calls / seconds;
    }

    private long callUntil(long end) {
        long calls = 0;
        while (System.nanoTime() - end < 0) {
            for (int i = 0; i < 100; i++) {
                if (!expected.equals(BWifiPlatformService.getBssid0(iface, ssid)))
                    throw new IllegalStateException("not " + expected);
            }
            calls += 100;
        }
        return calls;
    }
}
