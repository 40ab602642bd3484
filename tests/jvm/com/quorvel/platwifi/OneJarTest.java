package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Map;

/** Which library a program with the one jar loads, and what it says when it can load none. */
class OneJarTest extends OneJarFixture {
    private static final Path LIBRARY = Path.of(System.getProperty("platwifi.library"));
    private static final int ELF_MACHINE = 18;
    private static final String TITLE = "cannot load the Wi-Fi library: ";
    private static final String ADVICE = "Start Java with -Dplatwifi.library=FILE (the full path of"
            + " libplatwifi.so) or with -Djava.library.path=DIRECTORY that holds it.";

    @Test
    void itsOwnFilesAreLoaded() throws Exception {
        assertUses(program.cache());
    }

    @Test
    void theFileThatAPropertyNamesComesFirst() throws Exception {
        assertEquals(inBuild(), program.run("-Dplatwifi.library=" + LIBRARY));
        assertFalse(Files.exists(program.cache()));
    }

    @Test
    void theLibraryPathComesBeforeTheJar() throws Exception {
        assertEquals(inBuild(), program.run("-Djava.library.path=" + LIBRARY.getParent()));
        assertFalse(Files.exists(program.cache()));
    }

    @Test
    void whatIsInstalledComesBeforeTheJar() throws Exception {
        Path installed = Path.of("/usr/local/lib");
        program.run();
        mounts.add(installed, "mode=755");
        moveInstalled(OneJar.unpackedIn(program.cache()).resolve("lib"), installed);
        assertEquals("/usr/local/lib/libplatwifi.so.1\n"
                + "/usr/local/lib/platwifi/libplatwificrypt.so\n",
                program.run(Map.of("PLATFORM_BOOT_DIR", System.getenv("PLATFORM_BOOT_DIR")),
                        "-Djava.library.path="));
    }

    @Test
    void aLibraryThatWasChosenIsNotReplacedByThatOfTheJar() throws Exception {
        byte[] library = Files.readAllBytes(LIBRARY);
        library[ELF_MACHINE] ^= 0x55;
        Path chosen = Files.write(folder.resolve("libplatwifi.so"), library);
        String output = program.run("-Djava.library.path=" + folder);
        assertMessage(TITLE + chosen + ": ",
                "Looked for: " + chosen + " (there). " + ADVICE, output);
    }

    @Test
    void aForeignArchitectureIsNamed() throws Exception {
        String output = program.run("-Dos.arch=riscv64");
        String own = Architecture.ofHost().orElseThrow().folder;
        assertTrue(output.contains(
                ", and this jar has files for " + own + ", not for linux-riscv64. "), output);
        assertMessage(TITLE, ADVICE, output);
    }

    @Test
    void aJarWithoutNativeFilesIsNotBlamed() throws Exception {
        String output = program.with(new ChangedJar(OneJar.JAR).withoutNativeFiles()).run();
        assertFalse(output.contains("this jar"), output);
        assertMessage(TITLE, ADVICE, output);
    }

    @Test
    void aSystemThatIsTooOldIsNamed() throws Exception {
        String output = withLibraryText("GLIBC_2.14\0", "GLIBC_9.14\0").run();
        assertTrue(output.contains("`GLIBC_9.14' not found"), output);
        assertNeedsNamed(output);
    }

    /** As where the system has another C library. */
    @Test
    void aLibraryOfTheSystemThatIsNotThereIsNamed() throws Exception {
        String output = withLibraryText("libc.so.6\0", "libx.so.6\0").run();
        assertTrue(output.contains("libx.so.6: cannot open shared object file"), output);
        assertNeedsNamed(output);
    }

    @Test
    void theHostsClientMayBeALink() throws Exception {
        String client = "libexec/platwifi/boot/wpa_cli";
        program.with(new ChangedJar(OneJar.JAR).link(client, "/sbin/wpa_cli")).run();
        Path link = OneJar.unpackedIn(program.cache()).resolve(client);
        assertEquals(Path.of("/sbin/wpa_cli"), Files.readSymbolicLink(link));
        assertUses(program.cache());
    }

    private OneJar withLibraryText(String text, String replacement) throws Exception {
        String path = "lib/libplatwifi.so." + System.getProperty("platwifi.version");
        ChangedJar jar = new ChangedJar(OneJar.JAR);
        String library = new String(jar.content(path), StandardCharsets.ISO_8859_1);
        assertTrue(library.contains("\0" + text), text);
        return program.with(jar.replace(path, library.replace("\0" + text, "\0" + replacement)
                .getBytes(StandardCharsets.ISO_8859_1)));
    }

    private static void assertNeedsNamed(String output) {
        assertTrue(output.matches("(?s).* The files of this jar for linux-\\S+ need glibc 2[.]\\d+"
                + " or later[.] .*"), output);
        assertMessage(TITLE, ADVICE, output);
    }

    private static String inBuild() throws Exception {
        return LIBRARY.toRealPath() + "\n" + LIBRARY.resolveSibling("libplatwificrypt.so") + "\n";
    }

    // The files of the jar have the layout of an installation.
    private static void moveInstalled(Path libraries, Path installed) throws IOException {
        Files.createDirectory(installed.resolve("platwifi"));
        Path library = libraries.resolve("libplatwifi.so.1").toRealPath();
        Files.move(library, installed.resolve("libplatwifi.so.1"));
        for (Path file : OneJar.children(libraries.resolve("platwifi")))
            Files.move(file, installed.resolve("platwifi").resolve(file.getFileName()));
    }
}
