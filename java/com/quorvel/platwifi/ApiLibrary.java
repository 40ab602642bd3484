package com.quorvel.platwifi;

/**
 * Loads the native half of the package {@code com.quorvel.platwifi.api}, which does so by itself: a program calls
 * {@code Wifi.open()} only.
 *
 * <pre>{@code
 * ApiLibrary.load();
 * }</pre>
 */
public final class ApiLibrary {
    private ApiLibrary() {}

    /**
     * Loads the libraries platwifi and platwifievents, unless they are loaded. Any thread may call it.
     *
     * @throws UnsatisfiedLinkError  with every place that was tried, the cause and what to set
     */
    public static void load() {
        NativeLibrary.WIFI.load(); // first: the other one uses it, and a process has it once
        NativeLibrary.EVENTS.load();
    }
}
