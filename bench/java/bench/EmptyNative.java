package bench;

/** A native with the arguments and the result of a getter, that does nothing. */
final class EmptyNative {
    private EmptyNative() {}

    static native String text(String iface, String ssid);
}
