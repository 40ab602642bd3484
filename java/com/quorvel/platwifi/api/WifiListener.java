package com.quorvel.platwifi.api;

/**
 * Gets the events of an adapter, from {@link Wifi#addListener} on.
 *
 * <pre>{@code
 * wifi.addListener(event -> {
 *     if (event.kind() == WifiEvent.Kind.DISCONNECTED)
 *         System.out.println("disconnected: " + event.meaning());
 * });
 * }</pre>
 *
 * <p>A daemon thread of the library calls all listeners of a {@link Wifi}, one call after another. A listener may call
 * everything, but waits there for nothing that takes long: other listeners get their events later. What a listener
 * throws goes to the handler of uncaught exceptions; the listener stays.
 */
@FunctionalInterface
public interface WifiListener {
    /**
     * Something has happened.
     *
     * @param event  what
     */
    void onEvent(WifiEvent event);

    /**
     * No further event comes, because the supplicant has ended. The listener is removed then; it may be added again when
     * the supplicant runs again. It is not called by {@link Wifi#close} and {@link Wifi#removeListener}.
     *
     * @param failure  why
     */
    default void onEnd(WifiException failure) {}
}
