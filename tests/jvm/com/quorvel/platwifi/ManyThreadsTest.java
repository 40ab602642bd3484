package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.concurrent.CyclicBarrier;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;

class ManyThreadsTest {
    private static final int THREADS_A_KIND = 8;
    private static final int CALLS_A_THREAD = 20;
    private static final String[] LINES = {"02:00:00:00:01:00\t2412\t-30\t[ESS]\t😀 \uDCE9"};

    @Test
    void eachThreadGetsItsOwnAnswer() throws Exception {
        new StandIn()
                .processes("4711 /sbin/wpa_supplicant\n")
                .scan(StandIn.bytes(LINES[0] + "\n")).play();
        runTogether(ManyThreadsTest::asksWhetherEnabled, ManyThreadsTest::discovers);
    }

    private static void asksWhetherEnabled() {
        for (int i = 0; i < CALLS_A_THREAD; ++i)
            assertTrue(BWifiPlatformService.isWifiEnabled0("wlan0"));
    }

    private static void discovers() {
        assertArrayEquals(LINES, BWifiPlatformService.discoverNetworks0("wlan0"));
    }

    private static void runTogether(Runnable... kinds) throws Exception {
        int threads = kinds.length * THREADS_A_KIND;
        CyclicBarrier start = new CyclicBarrier(threads);
        ExecutorService pool = Executors.newFixedThreadPool(threads);
        List<Future<Void>> results = new ArrayList<>();
        for (int i = 0; i < threads; ++i)
            results.add(pool.submit(startingAt(start, kinds[i % kinds.length])));
        for (Future<Void> result : results)
            result.get();
        pool.shutdown();
    }

    private static Callable<Void> startingAt(CyclicBarrier start, Runnable work) {
        return () -> {
            start.await();
            work.run();
            return null;
        };
    }
}
