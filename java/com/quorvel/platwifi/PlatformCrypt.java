package com.quorvel.platwifi;

import java.util.Objects;

/**
 * Enciphers and deciphers secrets as they cross the interface of {@link BWifiPlatformService}:
 * what {@link #encrypt} gives is what {@code setPreSharedKey0} and the setters of the other secrets
 * take, and {@link #decrypt} reads what their getters give.
 *
 * <p>The key is this device's, in a file of the calling user that the first {@link #encrypt} makes:
 * the file that the environment variable {@code PLATFORM_KEY_FILE} names, else for root
 * {@code /var/lib/platform/crypt.key}, for others {@code platform/crypt.key} below
 * {@code $XDG_STATE_HOME} or {@code ~/.local/state}. It is read at each call.
 *
 * <pre>{@code
 * BWifiPlatformService.setPreSharedKey0("wlan0", "home", PlatformCrypt.encrypt(password));
 * }</pre>
 *
 * <p>The native library platwificrypt is loaded with the class. It stands beside that of
 * {@link BWifiPlatformService} and is found in the same way. Any thread may call.
 */
public final class PlatformCrypt {
    static {
        NativeLibrary.CRYPT.load();
    }

    private PlatformCrypt() {}

    /**
     * Enciphers a secret; each call gives another text.
     *
     * @param plain at most 1 MiB in UTF-8, may be empty. A lone surrogate U+DCNN stands for the
     *     byte NN, as everywhere here
     * @return printable ASCII
     * @throws NullPointerException without a text
     * @throws IllegalArgumentException for a text that would not come back as it is: one with
     *     U+0000 or with half of a surrogate pair that stands for no byte
     * @throws RuntimeException where the cipher or its key cannot be used: the message names the
     *     cause and the next step
     */
    public static String encrypt(String plain) {
        if (plain.codePoints().anyMatch(PlatformCrypt::isLost))
            throw new IllegalArgumentException("the text holds U+0000 or half of a surrogate pair,"
                    + " which would not come back; leave it out");
        return encrypt0(plain);
    }

    /**
     * Deciphers what {@link #encrypt} or a getter of a secret has given.
     *
     * @param enciphered  such a text
     * @return the secret
     * @throws NullPointerException without a text
     * @throws RuntimeException where the text is damaged or was enciphered with another key, or the
     *     key cannot be used: the message names the cause and the next step
     */
    public static String decrypt(String enciphered) {
        return decrypt0(Objects.requireNonNull(enciphered, "enciphered"));
    }

    private static boolean isLost(int character) {
        boolean isSurrogate = character >= Character.MIN_SURROGATE
                && character <= Character.MAX_SURROGATE;
        boolean isByte = character >= 0xDC80 && character <= 0xDCFF;
        return character == 0 || isSurrogate && !isByte;
    }

    private static native String encrypt0(String plain);

    private static native String decrypt0(String enciphered);
}
