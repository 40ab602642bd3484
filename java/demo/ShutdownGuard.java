package demo;

import java.util.concurrent.CountDownLatch;

/**
 * Lets the program undo its changes when a signal ends it, as Ctrl-C does: the program's thread is
 * interrupted, and the virtual machine runs until this object is closed.
 */
final class ShutdownGuard implements AutoCloseable {
    private final Thread program = Thread.currentThread();
    private final CountDownLatch closed = new CountDownLatch(1);

    /** Call before the first change. Until then, a signal ends the program at once. */
    void activate() {
        Runtime.getRuntime().addShutdownHook(new Thread(this::interruptAndWait));
    }

    @Override
    public void close() {
        closed.countDown();
    }

    private void interruptAndWait() {
        program.interrupt();
        try {
            closed.await();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }
}
