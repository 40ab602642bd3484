package com.quorvel.platwifi;

import java.math.BigInteger;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;

/** The digest that tells whether a file is as it was built. */
final class Sha256 {
    private Sha256() {}

    /** In hexadecimal, 64 lower-case characters. */
    static String of(byte[] content) {
        try {
            byte[] digest = MessageDigest.getInstance("SHA-256").digest(content);
            return String.format("%064x", new BigInteger(1, digest));
        } catch (NoSuchAlgorithmException impossible) { // every Java has it
            throw new IllegalStateException(impossible);
        }
    }
}
