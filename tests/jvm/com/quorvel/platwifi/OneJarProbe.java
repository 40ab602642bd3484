package com.quorvel.platwifi;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;

/**
 * A program that uses both classes, run with one jar in another virtual machine. It prints the
 * files of the two libraries.
 */
public final class OneJarProbe {
    private OneJarProbe() {}

    public static void main(String[] arguments) throws IOException {
        try {
            BWifiPlatformService.hashCACertificates0();
            decryptNothing();
            System.out.println(loaded("/libplatwifi.so") + "\n" + loaded("/libplatwificrypt.so"));
        } catch (UnsatisfiedLinkError error) {
            System.out.println(error.getMessage());
        }
    }

    private static void decryptNothing() {
        try {
            PlatformCrypt.decrypt("");
        } catch (RuntimeException expected) {
            // Of the C++ code, across its libraries.
        }
    }

    /** The file of a library that this process has loaded. */
    static String loaded(String library) throws IOException {
        List<String> maps = Files.readAllLines(Path.of("/proc/self/maps"));
        return maps.stream().filter(line -> line.contains(library)).findFirst()
                .map(line -> line.substring(line.indexOf('/'))).orElse("none");
    }
}
