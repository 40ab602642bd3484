package lab;

import java.util.concurrent.TimeUnit;
import java.util.function.BooleanSupplier;

/** Waits for what comes soon; the limit is only against waiting for ever. */
final class Wait {
    private static final double LONG_ENOUGH = 300;
    private static final long BETWEEN_LOOKS_MS = 100;

    private Wait() {}

    static boolean until(BooleanSupplier condition) {
        long start = System.nanoTime();
        while (!condition.getAsBoolean()) {
            if (secondsSince(start) > LONG_ENOUGH)
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
            Thread.sleep(BETWEEN_LOOKS_MS);
        } catch (InterruptedException never) {
            throw new IllegalStateException(never);
        }
    }
}
