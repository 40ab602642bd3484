package lab;

import java.util.concurrent.TimeUnit;
import java.util.function.BooleanSupplier;

/** Waits for a condition. The limit is for the case that it never becomes true. */
final class Wait {
    private static final double MAX_SECONDS = 300;
    private static final long POLL_INTERVAL_MS = 100;

    private Wait() {}

    static boolean until(BooleanSupplier condition) {
        long start = System.nanoTime();
        while (!condition.getAsBoolean()) {
            if (secondsSince(start) > MAX_SECONDS)
                return false;
            pause();
        }
        return true;
    }

    static double secondsSince(long start) {
        return (System.nanoTime() - start) / (double) TimeUnit.SECONDS.toNanos(1);
    }

    private static void pause() {
        try {
            Thread.sleep(POLL_INTERVAL_MS);
        } catch (InterruptedException unexpected) {
            throw new IllegalStateException(unexpected);
        }
    }
}
