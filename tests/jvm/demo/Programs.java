package demo;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermissions;

/** Makes programs for tests. */
final class Programs {
    private Programs() {}

    /** @return the path of a program that runs these commands of the shell */
    static String make(Path folder, String commands) throws IOException {
        Path program = Files.writeString(folder.resolve("program"),
                "#!/bin/sh\n" + commands + "\n");
        Files.setPosixFilePermissions(program, PosixFilePermissions.fromString("rwx------"));
        return program.toString();
    }
}
