package com.quorvel.platwifi.api;

import java.util.concurrent.CompletableFuture;
import java.util.concurrent.CompletionException;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;

/**
 * The result of an operation that takes seconds. A thread of the library works on it. {@link #get()}, {@link #get(long,
 * TimeUnit)} and {@link #join()} throw the {@link WifiException} of a failure itself, so that no other exception has to
 * be caught.
 *
 * <pre>{@code
 * WifiFuture<Connection> connecting = wifi.connect("home");
 * connecting.thenAccept(made -> System.out.println("on " + made.ssid()));
 * connecting.cancel(true);
 * }</pre>
 *
 * <p>{@link #cancel} ends the operation: what it has changed is taken back, and its thread ends soon after. Every other
 * completion from outside, such as by {@code orTimeout}, ends it likewise. Cancelling a stage that was made from this
 * one, by {@code thenAccept} for example, does not. For any thread.
 *
 * @param <T>  the type of the result
 */
public final class WifiFuture<T> extends CompletableFuture<T> {
    WifiFuture() {}

    /**
     * Waits for the result.
     *
     * @return the result
     * @throws WifiException  if the operation fails, or if this thread is interrupted; its interrupted status is set
     *     again then, and the operation goes on
     * @throws java.util.concurrent.CancellationException  if the operation was cancelled
     */
    @Override
    public T get() {
        try {
            return super.get();
        } catch (ExecutionException e) {
            throw failure(e.getCause());
        } catch (InterruptedException e) {
            throw interrupted();
        }
    }

    /**
     * Waits for the result, but not longer than this.
     *
     * @param timeout  how long
     * @param unit  of the time
     * @return the result
     * @throws WifiException  as {@link #get()} does, and with {@link Reason#TIMED_OUT} if there is no result after that
     *     time; the operation goes on
     * @throws java.util.concurrent.CancellationException  if the operation was cancelled
     */
    @Override
    public T get(long timeout, TimeUnit unit) {
        try {
            return super.get(timeout, unit);
        } catch (ExecutionException e) {
            throw failure(e.getCause());
        } catch (TimeoutException e) {
            throw new WifiException(Reason.TIMED_OUT, "there is no result after "
                    + unit.toMillis(timeout) + " ms; wait longer, or end the operation with cancel()");
        } catch (InterruptedException e) {
            throw interrupted();
        }
    }

    /**
     * Waits for the result, and cannot be interrupted.
     *
     * @return the result
     * @throws WifiException  if the operation fails
     * @throws java.util.concurrent.CancellationException  if the operation was cancelled
     */
    @Override
    public T join() {
        try {
            return super.join();
        } catch (CompletionException e) {
            throw failure(e.getCause());
        }
    }

    private static RuntimeException failure(Throwable cause) {
        if (cause instanceof WifiException)
            return ((WifiException) cause).here();
        return new WifiException(Reason.FAILED, cause + "; please report this fault", cause);
    }

    private static WifiException interrupted() {
        Thread.currentThread().interrupt();
        return new WifiException(Reason.INTERRUPTED, "the thread was interrupted while it waited; "
                + Reason.INTERRUPTED.nextStep());
    }
}
