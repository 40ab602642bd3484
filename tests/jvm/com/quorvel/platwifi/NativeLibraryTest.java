package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;

class NativeLibraryTest {
    private static final Path LIBRARY = Path.of(System.getProperty("platwifi.library"));
    private static final int ELF_MACHINE = 18;
    private static final String ADVICE = "Start Java with -Dplatwifi.library=FILE (the full path of"
            + " libplatwifi.so) or with -Djava.library.path=DIRECTORY that holds it.";

    // The runner hides what is installed there.
    private static final String INSTALLED = LibraryFolders.installed().stream()
            .map(folder -> folder + "/libplatwifi.so (no such file)")
            .collect(Collectors.joining(", "));

    @TempDir
    Path directory;

    @Test
    void isFoundByItsFullPath() throws Exception {
        assertEquals("called: true\n", probe("-Dplatwifi.library=" + LIBRARY));
    }

    @Test
    void isFoundInADirectoryOfTheLibraryPath() throws Exception {
        assertEquals("called: true\n",
                probe("-Djava.library.path=" + directory + ":" + LIBRARY.getParent()));
    }

    @Test
    void aWrongFullPathIsNamed() throws Exception {
        assertExplained(probe("-Dplatwifi.library=/nowhere/libplatwifi.so"),
                "Looked for: /nowhere/libplatwifi.so (no such file), as platwifi.library says. ");
    }

    @Test
    void theFullPathComesBeforeTheLibraryPath() throws Exception {
        assertExplained(
                probe("-Dplatwifi.library=/nowhere", "-Djava.library.path=" + LIBRARY.getParent()),
                "Looked for: /nowhere (no such file), as platwifi.library says. ");
    }

    @Test
    void everyDirectoryOfTheLibraryPathIsNamed() throws Exception {
        assertExplained(probe("-Djava.library.path=/nowhere:/else:"),
                "Looked for: /nowhere/libplatwifi.so (no such file), /else/libplatwifi.so"
                        + " (no such file), ./libplatwifi.so (no such file), " + INSTALLED + ". ");
    }

    @Test
    void whereItMayBeInstalledIsNamed() throws Exception {
        assertExplained(probe("-Djava.library.path="), "Looked for: " + INSTALLED + ". ");
    }

    @Test
    void isFoundAsAPackageInstallsIt() throws Exception {
        Files.createSymbolicLink(directory.resolve("libplatwifi.so.1"), LIBRARY);
        assertEquals("called: true\n", probe("-Djava.library.path=" + directory));
    }

    @Test
    void theCipherIsFoundInThePrivateFolder() throws Exception {
        Path folder = Files.createDirectory(directory.resolve("platwifi"));
        Path cipher = LIBRARY.resolveSibling("libplatwificrypt.so");
        Files.createSymbolicLink(folder.resolve("libplatwificrypt.so"), cipher);
        assertEquals("called: true\n", probeCipher("-Djava.library.path=" + directory));
        assertEquals("called: true\n",
                probeCipher("-Dplatwifi.library=" + directory.resolve("libplatwifi.so.1")));
    }

    @Test
    void aLibraryForAnotherMachineIsNotReportedAsMissing() throws Exception {
        byte[] library = Files.readAllBytes(LIBRARY);
        library[ELF_MACHINE] ^= 0x55;
        Files.write(directory.resolve("libplatwifi.so"), library);
        assertExplained(probe("-Djava.library.path=" + directory),
                "Looked for: " + directory + "/libplatwifi.so (there). ");
    }

    @Test
    void theCipherIsFoundBesideTheFullPath() throws Exception {
        assertEquals("called: true\n", probeCipher("-Dplatwifi.library=" + LIBRARY));
    }

    @Test
    void theCipherIsFoundInADirectoryOfTheLibraryPath() throws Exception {
        assertEquals("called: true\n",
                probeCipher("-Djava.library.path=" + directory + ":" + LIBRARY.getParent()));
    }

    @Test
    void aMissingCipherIsNamed() throws Exception {
        Path beside = directory.resolve("libplatwifi.so");
        String output = probeCipher("-Dplatwifi.library=" + beside);
        assertTrue(output.startsWith(
                "java.lang.UnsatisfiedLinkError: cannot load the library of the cipher: "), output);
        assertTrue(output.endsWith("Looked for: " + directory + "/libplatwificrypt.so"
                + " (no such file), as platwifi.library says. " + ADVICE + "\n"), output);
        assertTrue(probeCipher("-Djava.library.path=" + directory).contains(
                "Looked for: " + directory + "/libplatwificrypt.so (no such file), "));
    }

    private static void assertExplained(String output, String places) {
        assertTrue(output.startsWith(
                "java.lang.UnsatisfiedLinkError: cannot load the Wi-Fi library: "), output);
        assertTrue(output.endsWith(places + ADVICE + "\n"), output);
    }

    private String probe(String... options) throws IOException, InterruptedException {
        return run(List.of(NativeLibraryProbe.class.getName()), options);
    }

    private String probeCipher(String... options) throws IOException, InterruptedException {
        return run(List.of(NativeLibraryProbe.class.getName(), "cipher"), options);
    }

    private String run(List<String> program, String... options)
            throws IOException, InterruptedException {
        List<String> arguments = new ArrayList<>();
        arguments.addAll(List.of("-cp", System.getProperty("java.class.path")));
        arguments.addAll(List.of(options));
        arguments.addAll(program);
        return JavaProgram.output(JavaProgram.command(directory, arguments).start());
    }
}
