package demo;

import java.util.concurrent.CountDownLatch;

/**
 * Lets the program put things back when it is ended from outside, as by Ctrl-C: its thread is
 * interrupted, and the virtual machine goes on until this is closed.
 */
final class OrderlyEnd implements AutoCloseable {
    private final Thread program = Thread.currentThread();
    private final CountDownLatch isOver = new CountDownLatch(1);

    /** From now on there is something to put back; before, the program may end at once. */
    void require() {
        Runtime.getRuntime().addShutdownHook(new Thread(this::interruptAndWait));
    }

    @Override
    public void close() {
        isOver.countDown();
    }

    private void interruptAndWait() {
        program.interrupt();
        try {
            isOver.await();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }
}
