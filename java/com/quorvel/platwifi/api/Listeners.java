package com.quorvel.platwifi.api;

import java.util.List;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CopyOnWriteArrayList;

/** The listeners of a {@link Wifi}, and the thread that calls them, which exists while there are any. */
final class Listeners {
    private static final int LONGEST_WAIT_MILLISECONDS = 1000; // so that no native keeps a thread for long
    private static final int LONGEST_END_MILLISECONDS = 10_000;

    private final String adapter;
    private final List<WifiListener> listeners = new CopyOnWriteArrayList<>(); // changed under this
    private Source source; // guarded by this; null without listeners

    Listeners(String adapter) {
        this.adapter = adapter;
    }

    /** The first one attaches to the supplicant before it returns: no later event is missed. */
    synchronized void add(WifiListener listener) {
        if (source == null) {
            source = new Source();
            source.thread.start();
        }
        listeners.add(listener);
    }

    void remove(WifiListener listener) {
        Source ended = null;
        synchronized (this) {
            listeners.remove(listener);
            if (listeners.isEmpty()) {
                ended = source;
                source = null;
            }
        }
        if (ended != null)
            ended.end();
    }

    void close() {
        Source ended;
        synchronized (this) {
            listeners.clear();
            ended = source;
            source = null;
        }
        if (ended != null)
            ended.end();
    }

    /** The supplicant has ended: takes all listeners of this source. */
    private synchronized List<WifiListener> takeAll(Source ended) {
        if (source != ended)
            return List.of();
        List<WifiListener> all = List.copyOf(listeners);
        listeners.clear();
        source = null;
        return all;
    }

    private final class Source {
        final Cancellation cancellation = new Cancellation();
        final Thread thread = new Thread(this::run, "platwifi-events " + adapter);
        private final long events;

        Source() {
            thread.setDaemon(true);
            try {
                events = Natives.openEvents0(cancellation.handle(), adapter);
            } catch (RuntimeException e) {
                cancellation.close();
                throw e;
            }
        }

        void end() {
            cancellation.cancel();
            if (Thread.currentThread() == thread)
                return;
            try {
                thread.join(LONGEST_END_MILLISECONDS);
            } catch (InterruptedException e) {
                Thread.currentThread().interrupt(); // it ends all the same
            }
        }

        private void run() {
            try {
                serve();
            } catch (CancellationException e) { // there are no listeners any more
            } catch (WifiException e) {
                onEnd(e);
            } finally {
                Natives.closeEvents0(events);
                cancellation.close();
            }
        }

        private void serve() {
            for (;;) {
                String[] record = Natives.nextEvent0(events, LONGEST_WAIT_MILLISECONDS);
                if (record == null)
                    continue;
                WifiEvent event = new WifiEvent(new Members(record));
                for (WifiListener listener : listeners) {
                    cancellation.check();
                    guarded(() -> listener.onEvent(event));
                }
                if (event.isLast())
                    throw WifiException.ofNative(Reason.SUPPLICANT_GONE.word(), "",
                            "the supplicant no longer serves " + adapter);
            }
        }

        private void onEnd(WifiException failure) {
            for (WifiListener listener : takeAll(this))
                guarded(() -> listener.onEnd(failure));
        }

        private void guarded(Runnable call) {
            try {
                call.run();
            } catch (RuntimeException | Error e) {
                thread.getUncaughtExceptionHandler().uncaughtException(thread, e);
            }
        }
    }
}
