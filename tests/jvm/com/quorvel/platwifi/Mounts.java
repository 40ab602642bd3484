package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.util.ArrayDeque;
import java.util.Deque;

/** File systems of their own at folders. The tests run in a private world, where they may mount. */
final class Mounts {
    private final Deque<Path> mounted = new ArrayDeque<>();

    void add(Path folder, String options) throws IOException, InterruptedException {
        run("mount", "-t", "tmpfs", "-o", options, "tests", folder.toString());
        mounted.push(folder);
    }

    void change(Path folder, String options) throws IOException, InterruptedException {
        run("mount", "-o", "remount," + options, folder.toString());
    }

    void removeAll() throws IOException, InterruptedException {
        while (!mounted.isEmpty())
            run("umount", mounted.pop().toString());
    }

    private static void run(String... command) throws IOException, InterruptedException {
        Process child = new ProcessBuilder(command).redirectErrorStream(true).start();
        String output = new String(child.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
        assertEquals(0, child.waitFor(), output);
    }
}
