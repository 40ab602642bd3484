package com.quorvel.platwifi.api;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;

/** Assignments for the native half, and the secrets that some of them stand for. Overwrites its copies at the end. */
final class Secrets implements AutoCloseable {
    private final List<byte[]> secrets = new ArrayList<>();
    private final List<Passphrase> passphrases = new ArrayList<>();

    /** The changes of a network as assignments. */
    List<String> assignmentsOf(Network network) {
        List<String> assignments = new ArrayList<>();
        for (Map.Entry<String, String> change : network.changes().entrySet())
            assignments.add(change.getKey() + "=" + change.getValue());
        for (Map.Entry<String, Passphrase> secret : network.secrets().entrySet())
            assignments.add(secret.getKey() + "=" + add(secret.getValue()));
        return assignments;
    }

    byte[][] all() {
        return secrets.toArray(new byte[0][]);
    }

    private int add(Passphrase passphrase) {
        passphrases.add(passphrase);
        secrets.add(passphrase.copy());
        return secrets.size() - 1;
    }

    @Override
    public void close() {
        for (byte[] secret : secrets)
            Arrays.fill(secret, (byte) 0);
        for (Passphrase passphrase : passphrases)
            passphrase.close();
    }
}
