package com.quorvel.platwifi.api;

import com.quorvel.platwifi.ApiLibrary;

/**
 * The native half. SSIDs are hexadecimal digits; a record has names and values in turn. Each method throws a
 * WifiException, or a CancellationException once its cancellation was cancelled. Any thread may call any of them; those
 * that take longer than a command of the supplicant's client are called by threads of this package.
 */
final class Natives {
    private Natives() {}

    /** Loads the libraries, and chooses the profile of the process. */
    static void load() {
        try {
            ApiLibrary.load();
        } catch (UnsatisfiedLinkError e) {
            throw new WifiException(Reason.FAILED, e.getMessage()
                    + " A build with PLATWIFI_TOOLS=OFF has no library platwifievents.", e);
        }
        if (!useModernProfile0())
            throw new WifiException(Reason.FAILED, "this process uses the profile device already: a"
                    + " method of BWifiPlatformService has loaded the networks; call Wifi.open before"
                    + " it, or start Java with PLATWIFI_PROFILE=modern in the environment");
    }

    static native boolean useModernProfile0();

    /** The words of a table of the native half, for tests of the enumerations. */
    static native String[] words0(String table);

    static native long newCancellation0();

    static native void cancel0(long cancellation);

    static native void deleteCancellation0(long cancellation);

    static native String[] adapters0(long cancellation);

    /** The adapter with this name, or the first one for "", if the supplicant serves it. */
    static native String interface0(long cancellation, String iface);

    static native String[][] scan0(long cancellation, String iface);

    static native String[][] networks0(long cancellation, String iface);

    static native String[] link0(long cancellation, String iface);

    /** Steps are "add", "change" or "remove", the SSID, and assignments; those of secrets have an index. */
    static native void edit0(long cancellation, String iface, String[][] steps, byte[][] secrets);

    static native String[] join0(long cancellation, String iface, String ssid, String[] assignments,
            byte[][] secrets, int seconds);

    static native String[] connect0(long cancellation, String iface, String ssid, int seconds);

    static native void disconnect0(long cancellation, String iface);

    static native void roam0(long cancellation, String iface);

    static native long openEvents0(long cancellation, String iface);

    /** The next event; null if there is none after that time. */
    static native String[] nextEvent0(long events, int milliseconds);

    static native void closeEvents0(long events);
}
