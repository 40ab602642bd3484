package com.quorvel.platwifi.api;

import java.util.concurrent.CancellationException;

/** Ends the native call of an operation from another thread. */
final class Cancellation implements AutoCloseable {
    private long handle = Natives.newCancellation0(); // guarded by this; 0 once it is closed
    private volatile boolean isCancelled;

    /** For a native, until {@link #close}. */
    synchronized long handle() {
        return handle;
    }

    synchronized void cancel() {
        isCancelled = true;
        if (handle != 0)
            Natives.cancel0(handle);
    }

    void check() {
        if (isCancelled)
            throw new CancellationException("the operation was cancelled");
    }

    /** Called by the thread of the operation, when no native uses it any more. */
    @Override
    public synchronized void close() {
        Natives.deleteCancellation0(handle);
        handle = 0;
    }
}
