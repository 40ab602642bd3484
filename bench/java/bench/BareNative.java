package bench;

/** Natives that exchange with C what a getter exchanges, under a lock, and do nothing else. */
final class BareNative {
    private BareNative() {}

    static native String text(String iface, String ssid);

    static native int number(String iface, String ssid);
}
