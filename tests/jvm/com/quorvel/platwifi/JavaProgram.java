package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** A program that is run in another virtual machine of the same kind as this. */
final class JavaProgram {
    private static final int FIRST_THAT_WARNS = 24;

    private JavaProgram() {}

    /** The command that runs it with these options, class path first, and arguments. */
    static ProcessBuilder command(Path folder, List<String> arguments) {
        List<String> command = new ArrayList<>();
        command.add(Path.of(System.getProperty("java.home"), "bin", "java").toString());
        command.add("-Xcheck:jni");
        if (Runtime.version().feature() >= FIRST_THAT_WARNS)
            command.add("--enable-native-access=ALL-UNNAMED");
        command.addAll(arguments);
        return new ProcessBuilder(command).directory(folder.toFile()).redirectErrorStream(true);
    }

    /** What the program prints until it ends with status 0. */
    static String output(Process program) throws IOException, InterruptedException {
        String output =
                new String(program.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
        assertEquals(0, program.waitFor(), output);
        return output;
    }
}
