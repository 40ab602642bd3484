package com.quorvel.platwifi.api;

import java.util.ArrayList;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.CancellationException;
import java.util.concurrent.Semaphore;
import java.util.concurrent.TimeUnit;

/** What a {@link Wifi} does at the moment: operations on threads of their own, and calls on those of its users. */
final class Operations {
    /** An operation, from its begin to its end. */
    interface Body<T> {
        T run(Cancellation cancellation) throws InterruptedException;
    }

    private static final int LONGEST_WAIT_SECONDS = 10;
    private static final int PAUSE_MILLISECONDS = 100;

    /** Held while networks are changed: the supplicant has one configuration, and a process one memory of it. */
    private static final Semaphore CHANGES = new Semaphore(1, true);

    private static final class Running {
        final Cancellation cancellation = new Cancellation();
        final Thread thread;
        final boolean isConnecting;
        WifiFuture<?> future; // null for a call

        Running(Thread thread, boolean isConnecting) {
            this.thread = thread;
            this.isConnecting = isConnecting;
        }
    }

    private final String adapter;
    private final Set<Running> running = new HashSet<>(); // guarded by this, as isClosed
    private boolean isClosed;

    Operations(String adapter) {
        this.adapter = adapter;
    }

    /** Runs a body on this thread; {@link #close} ends it. */
    <T> T call(Body<T> body) {
        Running one = new Running(Thread.currentThread(), false);
        begin(one);
        try {
            return body.run(one.cancellation);
        } catch (CancellationException e) {
            throw closed();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new WifiException(Reason.INTERRUPTED, "the thread was interrupted, and nothing was"
                    + " changed; try again", e);
        } finally {
            end(one);
        }
    }

    /** The same for one that changes networks; it waits for others that do, for some seconds. */
    void change(Body<?> body) {
        call(cancellation -> {
            if (!CHANGES.tryAcquire(LONGEST_WAIT_SECONDS, TimeUnit.SECONDS))
                throw new WifiException(Reason.FAILED, "another operation changes networks, such as a"
                        + " join; wait for it or cancel it, then try again");
            try {
                cancellation.check();
                return body.run(cancellation);
            } finally {
                CHANGES.release();
            }
        });
    }

    /** Runs a body on a thread of its own. */
    <T> WifiFuture<T> start(String name, Body<T> body) {
        return start(name, false, body, () -> {});
    }

    /**
     * The same for one that connects: it waits for others that change networks.
     *
     * @param atEnd  always called, before the future is complete unless that is completed early
     */
    <T> WifiFuture<T> startConnecting(String name, Body<T> body, Runnable atEnd) {
        Body<T> inTurn = cancellation -> {
            while (!CHANGES.tryAcquire(PAUSE_MILLISECONDS, TimeUnit.MILLISECONDS))
                cancellation.check();
            try {
                return body.run(cancellation);
            } finally {
                CHANGES.release();
            }
        };
        return start(name, true, inTurn, atEnd);
    }

    void cancelConnecting() {
        List<Running> connecting = new ArrayList<>();
        synchronized (this) {
            for (Running one : running) {
                if (one.isConnecting)
                    connecting.add(one);
            }
        }
        for (Running one : connecting)
            one.future.cancel(true);
    }

    synchronized void requireOpen() {
        if (isClosed)
            throw closed();
    }

    /** Ends all of them and waits for their threads, unless it is called by one of them. */
    void close() {
        List<Running> ended;
        synchronized (this) {
            isClosed = true;
            ended = List.copyOf(running);
        }
        for (Running one : ended) {
            if (one.future != null)
                one.future.completeExceptionally(closed());
            one.cancellation.cancel();
        }
        for (Running one : ended)
            await(one);
    }

    private <T> WifiFuture<T> start(String name, boolean isConnecting, Body<T> body, Runnable atEnd) {
        WifiFuture<T> future = new WifiFuture<>();
        Running[] one = new Running[1];
        Thread thread = new Thread(() -> run(one[0], future, body, atEnd),
                "platwifi-" + name + " " + adapter);
        thread.setDaemon(true);
        one[0] = new Running(thread, isConnecting);
        one[0].future = future;
        begin(one[0]);
        future.whenComplete((result, failure) -> one[0].cancellation.cancel());
        thread.start();
        return future;
    }

    private <T> void run(Running one, WifiFuture<T> future, Body<T> body, Runnable atEnd) {
        T result = null;
        Throwable failure = null;
        try {
            one.cancellation.check();
            result = body.run(one.cancellation);
        } catch (Throwable e) { // all of them are the result
            failure = e;
        }
        atEnd.run();
        end(one);
        if (failure == null)
            future.complete(result);
        else
            future.completeExceptionally(failure);
    }

    private synchronized void begin(Running one) {
        if (isClosed) {
            one.cancellation.close();
            throw closed();
        }
        running.add(one);
    }

    private void end(Running one) {
        synchronized (this) {
            running.remove(one);
            notifyAll();
        }
        one.cancellation.close();
    }

    private void await(Running one) {
        if (one.thread == Thread.currentThread())
            return;
        try {
            if (one.future != null)
                one.thread.join(TimeUnit.SECONDS.toMillis(LONGEST_WAIT_SECONDS));
            else
                awaitCall(one);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt(); // they end all the same
        }
    }

    private synchronized void awaitCall(Running one) throws InterruptedException {
        long end = System.nanoTime() + TimeUnit.SECONDS.toNanos(LONGEST_WAIT_SECONDS);
        while (running.contains(one) && System.nanoTime() < end)
            wait(PAUSE_MILLISECONDS);
    }

    private static WifiException closed() {
        return new WifiException(Reason.CLOSED, "the Wifi was closed; " + Reason.CLOSED.nextStep());
    }
}
