package demo;

import java.util.concurrent.CountDownLatch;

/**
 * Lets the program undo its changes when a signal ends it, as Ctrl-C does: the program's thread is
 * interrupted, and the virtual machine runs until this object is closed.
 */
final class ShutdownGuard implements AutoCloseable {
    private final Thread program = Thread.currentThread();
    private final CountDownLatch closed = new CountDownLatch(1);
    private boolean isInterrupting = true; // guarded by this

    /** Call before the first change. Until then, a signal ends the program at once. */
    void activate() {
        Runtime.getRuntime().addShutdownHook(new Thread(this::interruptAndWait));
    }

    /** Call before the changes are undone: from now on a signal waits for that, and interrupts nothing. */
    synchronized void endInterruptions() {
        isInterrupting = false;
        Thread.interrupted(); // that of a signal before, which has had its effect
    }

    @Override
    public void close() {
        closed.countDown();
    }

    /** What a signal does first. */
    synchronized void interrupt() {
        if (isInterrupting)
            program.interrupt();
    }

    private void interruptAndWait() {
        interrupt();
        try {
            closed.await();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }
}
