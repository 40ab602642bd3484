package com.quorvel.platwifi.api;

import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;

/**
 * The name of a network: up to 32 bytes, which are UTF-8 text in most cases, but need not be.
 *
 * <pre>{@code
 * Ssid home = Ssid.of("home");
 * Ssid old = Ssid.of(new byte[] {(byte) 0xe9, 't', (byte) 0xe9});
 * System.out.println(home + " has " + home.bytes().length + " bytes; " + old.text()); // \xe9t\xe9
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class Ssid {
    private static final int MOST_BYTES = 32;
    private static final int ZERO_WIDTH_JOINER = 0x200D; // of emoji

    private final byte[] bytes;
    private final String text;

    private Ssid(byte[] bytes) {
        this.bytes = bytes;
        this.text = textOf(bytes);
    }

    /**
     * The name with these bytes.
     *
     * @param bytes  at most 32; none, or all zero, stand for a hidden name
     * @return a copy
     * @throws WifiException  if there are more
     */
    public static Ssid of(byte[] bytes) {
        if (bytes.length > MOST_BYTES)
            throw WifiException.wrongUse("an SSID has at most " + MOST_BYTES
                    + " bytes, and this one has " + bytes.length + "; shorten it");
        return new Ssid(bytes.clone());
    }

    /**
     * The name with this text.
     *
     * @param text  at most 32 bytes in UTF-8
     * @return its bytes in UTF-8
     * @throws WifiException  if there are more, or if the text is half of a surrogate pair
     */
    public static Ssid of(String text) {
        try {
            ByteBuffer buffer = StandardCharsets.UTF_8.newEncoder()
                    .encode(java.nio.CharBuffer.wrap(text));
            return of(Arrays.copyOf(buffer.array(), buffer.limit()));
        } catch (CharacterCodingException e) {
            throw WifiException.wrongUse("the text holds half of a surrogate pair, which is no"
                    + " character; use Ssid.of(byte[])");
        }
    }

    static Ssid ofHex(String digits) {
        byte[] bytes = new byte[digits.length() / 2];
        for (int i = 0; i < bytes.length; ++i)
            bytes[i] = (byte) Integer.parseInt(digits.substring(2 * i, 2 * i + 2), 16);
        return new Ssid(bytes);
    }

    String hex() {
        StringBuilder digits = new StringBuilder();
        for (byte one : bytes)
            digits.append(String.format("%02x", one));
        return digits.toString();
    }

    /**
     * The bytes.
     *
     * @return a copy
     */
    public byte[] bytes() {
        return bytes.clone();
    }

    /**
     * The name as text that can be shown.
     *
     * @return the characters; {@code \xNN} for each byte that is not UTF-8, and for those of characters that would move
     *     the cursor of a terminal, change the direction of writing, or be invisible
     */
    public String text() {
        return text;
    }

    /**
     * Whether an access point hides its name: it sends none, or zeros.
     *
     * @return true for a hidden name
     */
    public boolean isHidden() {
        for (byte one : bytes) {
            if (one != 0)
                return false;
        }
        return true;
    }

    /** The text, or {@code (hidden)}. */
    @Override
    public String toString() {
        return isHidden() ? "(hidden)" : text;
    }

    /** Whether the other object is the same name, byte by byte. */
    @Override
    public boolean equals(Object other) {
        return other instanceof Ssid && Arrays.equals(bytes, ((Ssid) other).bytes);
    }

    @Override
    public int hashCode() {
        return Arrays.hashCode(bytes);
    }

    // A byte of no valid character is decoded alone.
    private static String textOf(byte[] bytes) {
        StringBuilder text = new StringBuilder();
        for (int i = 0; i < bytes.length;) {
            int length = lengthOfCharacter(bytes, i);
            String character = decoded(bytes, i, length);
            if (character == null || !isPrintable(character.codePointAt(0))) {
                text.append(String.format("\\x%02x", bytes[i]));
                ++i;
            } else {
                text.append(character);
                i += length;
            }
        }
        return text.toString();
    }

    private static boolean isPrintable(int character) {
        switch (Character.getType(character)) {
        case Character.FORMAT:
            return character == ZERO_WIDTH_JOINER;
        case Character.CONTROL:
        case Character.PRIVATE_USE:
        case Character.LINE_SEPARATOR:
        case Character.PARAGRAPH_SEPARATOR:
            return false;
        default:
            return true;
        }
    }

    private static int lengthOfCharacter(byte[] bytes, int start) {
        int first = bytes[start] & 0xff;
        int length = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
        return Math.min(length, bytes.length - start);
    }

    private static String decoded(byte[] bytes, int start, int length) {
        try {
            return StandardCharsets.UTF_8.newDecoder()
                    .decode(ByteBuffer.wrap(bytes, start, length)).toString();
        } catch (CharacterCodingException e) {
            return null;
        }
    }
}
