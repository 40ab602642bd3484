package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static org.junit.jupiter.api.Assumptions.assumeTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.EnumSource;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.FileTime;
import java.nio.file.attribute.PosixFilePermissions;
import java.time.Duration;
import java.time.Instant;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;

/** Where a program with the one jar unpacks its native files, and what can be wrong there. */
class UnpackingTest extends OneJarFixture {
    private static final String LISTER = "libexec/platwifi/boot/pidin";
    private static final String PROBLEM =
            "cannot load the Wi-Fi library: its files in this jar cannot be unpacked: ";
    private static final String ADVICE = ". Start Java with -Dplatwifi.cache=DIRECTORY that belongs"
            + " to this user, where files can be written and executed.\n";

    @Test
    void thePropertyNamesTheCache() throws Exception {
        Path cache = folder.resolve("a/b");
        assertUses(cache, "-Dplatwifi.cache=" + cache);
        assertFalse(Files.exists(program.cache()));
    }

    @Test
    void theCacheOfTheUserMayBeElsewhere() throws Exception {
        String output = program.run(Map.of("XDG_CACHE_HOME", folder.resolve("xdg").toString()));
        assertEquals(OneJar.loadedFrom(folder.resolve("xdg/platwifi")), output);
    }

    @Test
    void aUserWithoutHomeHasACacheForTemporaryFiles() throws Exception {
        assertUses(temporaryCache(), "-Duser.home=?");
    }

    @Test
    void theCacheIsPrivate() throws Exception {
        program.run();
        assertEquals("rwx------", mode(program.cache()));
        assertEquals("rwx------", mode(OneJar.unpackedIn(program.cache())));
    }

    @Test
    void theProgramsAreExecutable() throws Exception {
        program.run();
        Path unpacked = OneJar.unpackedIn(program.cache());
        assertTrue(Files.isExecutable(unpacked.resolve(LISTER)));
        assertTrue(Files.isExecutable(unpacked.resolve("libexec/platwifi/boot/wpa_cli")));
    }

    @Test
    void theSecondStartUsesTheSameFiles() throws Exception {
        program.run();
        Path lister = OneJar.unpackedIn(program.cache()).resolve(LISTER);
        Object first = Files.getAttribute(lister, "unix:ino");
        assertUses(program.cache());
        assertEquals(first, Files.getAttribute(lister, "unix:ino"));
    }

    /** What can have happened to an unpacked file. */
    enum Damage {
        CHANGED(file -> {
            byte[] content = Files.readAllBytes(file);
            content[content.length / 2] ^= 1;
            Files.write(file, content);
        }),
        SHORTENED(file -> Files.write(file, new byte[0])),
        REMOVED_WITH_ITS_FOLDER(file -> {
            for (Path neighbour : OneJar.children(file.getParent()))
                Files.delete(neighbour);
            Files.delete(file.getParent());
        }),
        MOVED(file -> {
            Path elsewhere = file.resolveSibling("elsewhere");
            Files.move(file, elsewhere);
            Files.createSymbolicLink(file, elsewhere);
        }),
        NOT_EXECUTABLE(file ->
                Files.setPosixFilePermissions(file, PosixFilePermissions.fromString("rw-r--r--")));

        private interface Change {
            void apply(Path file) throws IOException;
        }

        private final Change change;

        Damage(Change change) {
            this.change = change;
        }
    }

    @ParameterizedTest
    @EnumSource
    void aDamagedProgramIsReplaced(Damage damage) throws Exception {
        Path lister = assertReplaced(LISTER, damage);
        assertTrue(Files.isExecutable(lister));
    }

    @Test
    void aDamagedLibraryIsReplaced() throws Exception {
        assertReplaced("lib/platwifi/libplatform.so", Damage.CHANGED);
    }

    @Test
    void anotherLinkIsReplaced() throws Exception {
        program.run();
        Path link = OneJar.unpackedIn(program.cache()).resolve("lib/libplatwifi.so.1");
        Files.delete(link);
        Files.createSymbolicLink(link, Path.of("/nowhere"));
        assertUses(program.cache());
    }

    @Test
    void programsMayStartAtOnce() throws Exception {
        List<Process> processes = new ArrayList<>();
        for (int i = 0; i < 6; i++)
            processes.add(program.start(Map.of()));
        List<String> outputs = new ArrayList<>();
        for (Process process : processes)
            outputs.add(JavaProgram.output(process));
        for (String output : outputs)
            assertEquals(OneJar.loadedFrom(program.cache()), output);
    }

    @Test
    void onlyOneOfManyIsFirst() throws Exception {
        Process process = program.start(UnpackingProbe.class, Map.of(),
                "-Dplatwifi.cache=" + program.cache());
        assertEquals("", JavaProgram.output(process));
        assertTrue(isComplete(OneJar.unpackedIn(program.cache())));
    }

    @Test
    void aProgramMayBeKilledWhileItUnpacks() throws Exception {
        Process killed = program.start(Map.of());
        while (killed.isAlive() && !Files.exists(program.cache()))
            Thread.onSpinWait();
        killed.destroyForcibly().waitFor();
        program.run();
        assertTrue(OneJar.children(program.cache()).stream().anyMatch(this::isComplete));
    }

    @Test
    void whatAKilledProgramLeftIsRemovedLater() throws Exception {
        Files.createDirectories(program.cache(), PrivateFolder.MODE);
        Path old = leftover("unpacking-1", Duration.ofHours(2));
        Path recent = leftover("unpacking-2", Duration.ZERO); // perhaps of a running program
        program.run();
        assertFalse(Files.exists(old));
        assertTrue(Files.exists(recent));
    }

    @Test
    void aFolderThatOthersMayWriteToIsRefused() throws Exception {
        program.run();
        Path unpacked = OneJar.unpackedIn(program.cache());
        for (Path open : List.of(unpacked, program.cache(), program.home())) {
            String mode = mode(open);
            Files.setPosixFilePermissions(open, PosixFilePermissions.fromString("rwxrwx---"));
            assertRefused(program.cache(), "other users may write to " + open);
            Files.setPosixFilePermissions(open, PosixFilePermissions.fromString(mode));
        }
    }

    @Test
    void aFolderAboveMayBeOneForTemporaryFilesOfEveryUser() throws Exception {
        Files.setAttribute(program.temporary(), "unix:mode", 01777);
        program.run("-Duser.home=?");
        assertUses(temporaryCache(), "-Duser.home=?");
    }

    @Test
    void aLinkIsRefused() throws Exception {
        Path link = Files.createSymbolicLink(folder.resolve("link"),
                Files.createDirectory(folder.resolve("target"), PrivateFolder.MODE));
        assertRefused(link, link + " is a symbolic link");
    }

    @Test
    void aLinkInPlaceOfTheUnpackedFilesIsRefused() throws Exception {
        program.run();
        Path unpacked = OneJar.unpackedIn(program.cache());
        Files.move(unpacked, folder.resolve("moved"));
        Files.createSymbolicLink(unpacked, folder.resolve("moved"));
        assertRefused(program.cache(), unpacked + " is a symbolic link");
    }

    @Test
    void aFolderOfAnotherUserIsRefused() throws Exception {
        Path foreign = Files.createDirectory(folder.resolve("foreign"), PrivateFolder.MODE);
        assumeTrue(canGiveAway(foreign), "only root can give a folder to another user");
        assertRefused(foreign, foreign + " belongs to the user 1");
    }

    @Test
    void aFolderInOneOfAnotherUserIsRefused() throws Exception {
        Path foreign = Files.createDirectory(folder.resolve("foreign"));
        Path own = Files.createDirectory(foreign.resolve("own"), PrivateFolder.MODE);
        assumeTrue(canGiveAway(foreign), "only root can give a folder to another user");
        assertRefused(own, foreign + " belongs to the user 1");
    }

    @Test
    void aFileInPlaceOfTheCacheIsRefused() throws Exception {
        Path file = Files.createFile(folder.resolve("file"));
        assertRefused(file, file + " is not a directory");
    }

    @Test
    void aHomeThatExecutesNoFilesIsNotUsed() throws Exception {
        mounts.add(program.home(), "noexec,mode=700");
        assertUses(temporaryCache());
        assertEquals(List.of(), OneJar.children(program.cache()));
    }

    @Test
    void aHomeThatExecutesFilesNoLongerIsNotUsed() throws Exception {
        mounts.add(program.home(), "mode=700");
        program.run();
        mounts.change(program.home(), "noexec");
        assertUses(temporaryCache());
    }

    @Test
    void placesThatExecuteNoFilesAreNamed() throws Exception {
        String problem = ": its file system executes no files (mounted with noexec)";
        mounts.add(program.home(), "noexec,mode=700");
        mounts.add(program.temporary(), "noexec,mode=700");
        assertEquals(PROBLEM + program.cache() + problem + "; " + temporaryCache() + problem
                + ADVICE, program.run());
    }

    @Test
    void aReadOnlyHomeIsNotUsed() throws Exception {
        mounts.add(program.home(), "ro");
        assertUses(temporaryCache());
    }

    @Test
    void aReadOnlyPlaceIsNamed() throws Exception {
        mounts.add(program.home(), "ro");
        assertRefused(program.cache(), "Read-only file system");
    }

    @Test
    void aReadOnlyPlaceMayHoldTheFilesAlready() throws Exception {
        mounts.add(program.home(), "mode=700");
        program.run();
        mounts.change(program.home(), "ro");
        assertUses(program.cache());
    }

    @Test
    void aFullDiskIsNamedAndNothingStays() throws Exception {
        mounts.add(program.home(), "size=64k,mode=700");
        assertRefused(program.cache(), "No space left on device");
        assertEquals(List.of(), OneJar.children(program.cache()));
    }

    @Test
    void aDamagedJarIsNotUsed() throws Exception {
        program.with(new ChangedJar(OneJar.JAR).damage(LISTER));
        assertRefused(program.cache(),
                "this jar is damaged: its " + LISTER + " is not as it was built");
    }

    private Path assertReplaced(String path, Damage damage) throws Exception {
        program.run();
        Path file = OneJar.unpackedIn(program.cache()).resolve(path);
        byte[] original = Files.readAllBytes(file);
        damage.change.apply(file);
        Object damaged = Files.exists(file) ? Files.getAttribute(file, "unix:ino") : null;
        assertUses(program.cache());
        assertFalse(Files.isSymbolicLink(file));
        assertEquals(Sha256.of(original), Sha256.of(Files.readAllBytes(file)));
        // A program that uses the old file keeps it.
        assertNotEquals(damaged, Files.getAttribute(file, "unix:ino"));
        return file;
    }

    /** The cache is not used, for this reason, and there is no other. */
    private void assertRefused(Path cache, String reason) throws Exception {
        assertEquals(PROBLEM + cache + ": " + reason + ADVICE,
                program.run("-Dplatwifi.cache=" + cache));
    }

    private boolean isComplete(Path unpacked) {
        return !unpacked.getFileName().toString().startsWith("unpacking-")
                && Files.isExecutable(unpacked.resolve(LISTER));
    }

    private Path leftover(String name, Duration age) throws IOException {
        Path leftover = Files.createDirectory(program.cache().resolve(name));
        Files.createFile(leftover.resolve("part"));
        Files.setLastModifiedTime(leftover, FileTime.from(Instant.now().minus(age)));
        return leftover;
    }

    private static boolean canGiveAway(Path folder) {
        try {
            Files.setAttribute(folder, "unix:uid", 1);
            return true;
        } catch (IOException notRoot) {
            return false;
        }
    }

    private Path temporaryCache() throws IOException {
        return program.temporary().resolve("platwifi-" + PrivateFolder.ownUser());
    }

    private static String mode(Path folder) throws IOException {
        return PosixFilePermissions.toString(Files.getPosixFilePermissions(folder));
    }
}
