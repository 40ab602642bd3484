package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.io.TempDir;

import java.nio.file.Path;

/** What the tests of a program with the one jar have in common. */
abstract class OneJarFixture {
    @TempDir
    Path folder;

    final Mounts mounts = new Mounts();
    OneJar program;

    @BeforeEach
    void start() throws Exception {
        program = new OneJar(folder);
    }

    @AfterEach
    void unmount() throws Exception {
        mounts.removeAll();
    }

    /** Runs the program, which must use the files that are unpacked in this cache. */
    void assertUses(Path cache, String... options) throws Exception {
        String output = program.run(options);
        assertEquals(OneJar.loadedFrom(cache), output);
    }

    /** That a message is one line and begins and ends so. */
    static void assertMessage(String beginning, String end, String output) {
        assertTrue(output.startsWith(beginning), output);
        assertTrue(output.endsWith(end + "\n"), output);
        assertEquals(1, output.lines().count(), output);
    }
}
