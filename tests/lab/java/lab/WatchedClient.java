package lab;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.List;

/**
 * Records the library's commands while it is open: the name and, of set_network, the key. Values may
 * be secrets and are not recorded.
 */
final class WatchedClient implements AutoCloseable {
    private static final Path PROGRAM = Path.of(Host.variable("PLATFORM_BOOT_DIR"), "wpa_cli");

    private final Path unwatched = PROGRAM.resolveSibling("unwatched");
    private final Path commands = PROGRAM.resolveSibling("commands");

    WatchedClient() throws IOException {
        Files.move(PROGRAM, unwatched);
        Files.writeString(PROGRAM, "#!/bin/sh\n"
                + "case $2 in set_network) echo \"$2 $4\" ;; *) echo \"$2\" ;; esac >>" + commands
                + "\nexec wpa_cli \"$@\"\n");
        Files.setPosixFilePermissions(PROGRAM, PosixFilePermissions.fromString("rwx------"));
    }

    List<String> commands() throws IOException {
        return Files.exists(commands) ? Files.readAllLines(commands) : List.of();
    }

    @Override
    public void close() throws IOException {
        Files.delete(PROGRAM);
        Files.move(unwatched, PROGRAM);
        Files.deleteIfExists(commands);
    }
}
