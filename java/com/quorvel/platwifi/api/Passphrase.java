package com.quorvel.platwifi.api;

import java.nio.ByteBuffer;
import java.nio.CharBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;

/**
 * A secret: the key of a network, or a password. It never prints what it holds, and overwrites it when it is closed.
 * The operation that it is given to closes it when that ends, whatever the outcome.
 *
 * <pre>{@code
 * char[] chars = System.console().readPassword("key: ");
 * try (Passphrase key = Passphrase.of(chars)) {
 *     Arrays.fill(chars, ' ');
 *     wifi.join("home", key).get();
 * }
 * }</pre>
 *
 * <p>For any thread.
 */
public final class Passphrase implements AutoCloseable {
    private byte[] bytes; // guarded by this; null once it is closed

    private Passphrase(byte[] bytes) {
        this.bytes = bytes;
    }

    /**
     * A secret with these characters.
     *
     * @param characters  the caller's array stays as it is, and is the caller's to overwrite
     * @return a copy of them
     * @throws WifiException  for U+0000, and for half of a surrogate pair
     */
    public static Passphrase of(char[] characters) {
        for (char one : characters) {
            if (one == 0)
                throw WifiException.wrongUse("a secret cannot hold U+0000; leave it out");
        }
        try {
            ByteBuffer encoded = StandardCharsets.UTF_8.newEncoder().encode(CharBuffer.wrap(characters));
            byte[] bytes = Arrays.copyOf(encoded.array(), encoded.limit());
            Arrays.fill(encoded.array(), (byte) 0);
            return new Passphrase(bytes);
        } catch (CharacterCodingException e) {
            throw WifiException.wrongUse("a secret cannot hold half of a surrogate pair; leave it out");
        }
    }

    /** A copy in UTF-8, which the caller overwrites. */
    synchronized byte[] copy() {
        if (bytes == null)
            throw WifiException.wrongUse("the Passphrase is closed: the operation that it was given to"
                    + " has ended; make another one");
        return bytes.clone();
    }

    /**
     * Whether the secret was overwritten.
     *
     * @return true from the first {@link #close} on
     */
    public synchronized boolean isClosed() {
        return bytes == null;
    }

    /** Overwrites the secret. Does nothing the second time. */
    @Override
    public synchronized void close() {
        if (bytes != null)
            Arrays.fill(bytes, (byte) 0);
        bytes = null;
    }

    /** Tells nothing about the secret, not even its length. */
    @Override
    public String toString() {
        return "Passphrase[...]";
    }
}
