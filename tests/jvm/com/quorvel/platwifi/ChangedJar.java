package com.quorvel.platwifi;

import java.io.IOException;
import java.io.InputStream;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Enumeration;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;
import java.util.zip.ZipEntry;
import java.util.zip.ZipOutputStream;

/** A copy of a jar with native files, with other files or other lines of the index. */
final class ChangedJar {
    private static final String ROOT =
            "META-INF/native/" + Architecture.ofHost().orElseThrow().folder + "/";

    private final Map<String, byte[]> entries = new LinkedHashMap<>();

    ChangedJar(Path jar) throws IOException {
        try (JarFile file = new JarFile(jar.toFile())) {
            for (Enumeration<JarEntry> all = file.entries(); all.hasMoreElements();) {
                JarEntry entry = all.nextElement();
                try (InputStream content = file.getInputStream(entry)) {
                    entries.put(entry.getName(), content.readAllBytes());
                }
            }
        }
    }

    /** The content of a native file. */
    byte[] content(String path) {
        return entries.get(ROOT + path);
    }

    /** Replaces a native file, with its line in the index. */
    ChangedJar replace(String path, byte[] content) {
        String digest = Sha256.of(content);
        changeIndex("file (\\d+) \\d+ \\w+ " + path,
                "file $1 " + content.length + " " + digest + " " + path);
        entries.put(ROOT + path, content);
        return this;
    }

    /** Changes a native file, but not its line in the index. */
    ChangedJar damage(String path) {
        content(path)[0] ^= 1;
        return this;
    }

    /** Has a link in place of a native file. */
    ChangedJar link(String path, String target) {
        changeIndex("file .* " + path, "link " + target + " " + path);
        entries.remove(ROOT + path);
        return this;
    }

    ChangedJar withoutNativeFiles() {
        entries.keySet().removeIf(name -> name.startsWith("META-INF/native/"));
        return this;
    }

    Path writeTo(Path jar) throws IOException {
        try (OutputStream file = Files.newOutputStream(jar);
                ZipOutputStream zip = new ZipOutputStream(file)) {
            for (Map.Entry<String, byte[]> entry : entries.entrySet()) {
                zip.putNextEntry(new ZipEntry(entry.getKey()));
                zip.write(entry.getValue());
            }
        }
        return jar;
    }

    private void changeIndex(String line, String replacement) {
        String index = new String(content("index"), StandardCharsets.UTF_8);
        String old = index.substring(index.indexOf('\n') + 1); // without its digest
        String changed = old.replaceAll(line, replacement);
        if (changed.equals(old))
            throw new IllegalArgumentException("the index has no line " + line + ":\n" + old);
        String digest = Sha256.of(changed.getBytes(StandardCharsets.UTF_8));
        entries.put(ROOT + "index",
                ("digest " + digest + "\n" + changed).getBytes(StandardCharsets.UTF_8));
    }
}
