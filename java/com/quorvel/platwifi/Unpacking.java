package com.quorvel.platwifi;

import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.file.DirectoryIteratorException;
import java.nio.file.DirectoryStream;
import java.nio.file.FileSystemException;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.time.Duration;
import java.time.Instant;
import java.util.Arrays;
import java.util.Comparator;
import java.util.stream.Stream;

/**
 * Puts the files of an index into a cache folder, below the digest of the index. Any number of
 * processes may do so at once, and may be killed at any time: the files are written to a temporary
 * folder beside, which takes its name in one step. Files that are damaged are replaced one by one,
 * so that programs that use them always find one.
 */
final class Unpacking {
    private static final String TEMPORARY = "unpacking-";
    private static final Duration LONGEST_UNPACKING = Duration.ofHours(1);

    private final NativeIndex index;
    private final Path root;

    Unpacking(NativeIndex index, Path root) {
        this.index = index;
        this.root = root;
    }

    /**
     * The folder with all files, each as it was built.
     *
     * @throws IOException if there cannot be such a folder, or if its file system executes no files
     */
    Path folder() throws IOException {
        PrivateFolder.create(root);
        Path folder = root.resolve(index.digest());
        if (!Files.exists(folder, LinkOption.NOFOLLOW_LINKS))
            unpackTo(folder);
        PrivateFolder.require(folder);
        for (NativeIndex.Entry entry : index.entries())
            ensure(folder, entry);
        requireProgramsIn(folder);
        return folder;
    }

    private void ensure(Path folder, NativeIndex.Entry entry) throws IOException {
        if (!isIntact(folder, entry))
            replace(folder, entry);
    }

    private void unpackTo(Path folder) throws IOException {
        removeLeftovers();
        Path temporary = temporaryFolder();
        try {
            for (NativeIndex.Entry entry : index.entries())
                write(temporary, entry);
            requireProgramsIn(temporary);
            rename(temporary, folder);
        } finally {
            remove(temporary);
        }
    }

    private Path temporaryFolder() throws IOException {
        return Files.createTempDirectory(root, TEMPORARY, PrivateFolder.MODE);
    }

    // Another process may have been faster: its files are as good.
    private static void rename(Path temporary, Path folder) throws IOException {
        try {
            Files.move(temporary, folder, StandardCopyOption.ATOMIC_MOVE);
        } catch (FileSystemException cause) {
            if (!Files.exists(folder, LinkOption.NOFOLLOW_LINKS))
                throw cause;
        }
    }

    private void write(Path folder, NativeIndex.Entry entry) throws IOException {
        Path file = folder.resolve(entry.path);
        Files.createDirectories(file.getParent());
        if (entry.target != null) {
            Files.createSymbolicLink(file, Path.of(entry.target));
            return;
        }
        byte[] content = index.content(entry);
        if (!Sha256.of(content).equals(entry.digest))
            throw new IOException(
                    "this jar is damaged: its " + entry.path + " is not as it was built");
        Files.write(file, content);
        Files.setPosixFilePermissions(file,
                PosixFilePermissions.fromString(entry.isProgram ? "rwxr-xr-x" : "rw-r--r--"));
    }

    // Compared with the jar: a virtual machine interprets the code of a digest at first.
    private boolean isIntact(Path folder, NativeIndex.Entry entry) throws IOException {
        Path file = folder.resolve(entry.path);
        if (entry.target != null)
            return Files.isSymbolicLink(file)
                    && Files.readSymbolicLink(file).equals(Path.of(entry.target));
        return Files.isRegularFile(file, LinkOption.NOFOLLOW_LINKS)
                && Files.size(file) == entry.size
                && (!entry.isProgram || hasModeOfProgram(file))
                && Arrays.equals(Files.readAllBytes(file), index.content(entry));
    }

    private static boolean hasModeOfProgram(Path file) throws IOException {
        return Files.getPosixFilePermissions(file).contains(PosixFilePermission.OWNER_EXECUTE);
    }

    private void replace(Path folder, NativeIndex.Entry entry) throws IOException {
        Path temporary = temporaryFolder();
        try {
            write(temporary, entry);
            Path file = folder.resolve(entry.path);
            Files.createDirectories(file.getParent());
            Files.move(temporary.resolve(entry.path), file, StandardCopyOption.ATOMIC_MOVE);
        } finally {
            remove(temporary);
        }
    }

    private void requireProgramsIn(Path folder) throws IOException {
        for (NativeIndex.Entry entry : index.entries())
            if (entry.isProgram && !Files.isExecutable(folder.resolve(entry.path)))
                throw new IOException("its file system executes no files (mounted with noexec)");
    }

    // Of processes that were killed while they unpacked.
    private void removeLeftovers() {
        Instant old = Instant.now().minus(LONGEST_UNPACKING);
        try (DirectoryStream<Path> leftovers = Files.newDirectoryStream(root, TEMPORARY + "*")) {
            for (Path leftover : leftovers)
                if (Files.getLastModifiedTime(leftover).toInstant().isBefore(old))
                    remove(leftover);
        } catch (IOException | DirectoryIteratorException removed) {
            // Another process removes them at the same time; else they stay until the next time.
        }
    }

    private static void remove(Path folder) throws IOException {
        if (!Files.exists(folder))
            return; // it has got its name
        try (Stream<Path> files = Files.walk(folder)) {
            for (Path file : (Iterable<Path>) files.sorted(Comparator.reverseOrder())::iterator)
                Files.deleteIfExists(file);
        } catch (UncheckedIOException cause) {
            throw cause.getCause();
        }
    }
}
