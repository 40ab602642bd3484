package com.quorvel.platwifi;

import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * The list of the native files that the build has put into this jar for one architecture. It is
 * text, one entry a line: {@code digest SHA-256} (of the lines that follow), {@code glibc VERSION}
 * (the oldest that they run with), {@code file MODE SIZE SHA-256 PATH} or {@code link TARGET PATH}.
 */
final class NativeIndex {
    /** A regular file, or a link if it has a target. */
    static final class Entry {
        final String path;
        final String target;
        final boolean isProgram;
        final long size;
        final String digest;

        private Entry(String path, String target, boolean isProgram, long size, String digest) {
            this.path = path;
            this.target = target;
            this.isProgram = isProgram;
            this.size = size;
            this.digest = digest;
        }
    }

    private static final String ROOT = "/META-INF/native/";

    private final String architecture;
    private final List<Entry> entries = new ArrayList<>();
    private String digest;
    private String glibc;

    private NativeIndex(String architecture, String text) throws IOException {
        this.architecture = architecture;
        for (String line : text.split("\n"))
            add(line, line.split(" "));
    }

    /** Whether this jar has files for this machine. */
    static boolean isInJar() {
        return Architecture.ofHost().filter(NativeIndex::isHeld).isPresent();
    }

    /** That of this machine's architecture. */
    static NativeIndex ofHost() throws IOException {
        String architecture = Architecture.ofHost().orElseThrow().folder;
        try (InputStream index = resource(architecture, "index")) {
            return new NativeIndex(architecture,
                    new String(index.readAllBytes(), StandardCharsets.UTF_8));
        }
    }

    /** For a message: the architectures of this jar, if it has any. */
    static String described() {
        List<String> held = Stream.of(Architecture.values()).filter(NativeIndex::isHeld)
                .map(one -> one.folder).collect(Collectors.toList());
        return held.isEmpty() ? "" : String.format(", and this jar has files for %s, not for %s",
                String.join(" and ", held), Architecture.hostName());
    }

    private static boolean isHeld(Architecture architecture) {
        return NativeIndex.class.getResource(ROOT + architecture.folder + "/index") != null;
    }

    private static InputStream resource(String architecture, String path) throws IOException {
        String name = ROOT + architecture + "/" + path;
        InputStream stream = NativeIndex.class.getResourceAsStream(name);
        if (stream == null)
            throw new IOException("this jar lacks " + name);
        return stream;
    }

    private void add(String line, String[] fields) throws IOException {
        String path = fields[fields.length - 1];
        if (fields[0].equals("digest"))
            digest = path;
        else if (fields[0].equals("glibc"))
            glibc = path;
        else if (fields[0].equals("link"))
            entries.add(new Entry(path, fields[1], false, 0, ""));
        else if (fields[0].equals("file"))
            entries.add(new Entry(path, null, (Integer.parseInt(fields[1], 8) & 0100) != 0,
                    Long.parseLong(fields[2]), fields[3]));
        else
            throw new IOException("this jar's index has the unknown line " + line);
    }

    List<Entry> entries() {
        return entries;
    }

    /** What this jar has for a file, which is as it was built if it has the digest of the entry. */
    byte[] content(Entry file) throws IOException {
        try (InputStream content = resource(architecture, file.path)) {
            return content.readAllBytes();
        }
    }

    /**
     * The SHA-256 of the index, and so of all files. The build has computed it, as a virtual
     * machine loads a hundred classes for its first digest.
     */
    String digest() {
        return digest;
    }

    /** For a message: what the files need of the system. */
    String needs() {
        return String.format("The files of this jar for %s need glibc %s or later.", architecture,
                glibc);
    }
}
