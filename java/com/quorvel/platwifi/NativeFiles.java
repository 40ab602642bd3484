package com.quorvel.platwifi;

import java.io.File;
import java.io.IOException;
import java.nio.file.AccessDeniedException;
import java.nio.file.FileSystemException;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** The native files of this jar, unpacked and checked once in a process. */
final class NativeFiles {
    private static NativeFiles ready;

    private final NativeIndex index;
    private final Path folder;

    private NativeFiles(NativeIndex index, Path folder) {
        this.index = index;
        this.folder = folder;
    }

    /**
     * In the first folder that can hold them.
     *
     * @throws IOException with each folder and what is wrong with it
     */
    static synchronized NativeFiles unpacked() throws IOException {
        if (ready == null)
            ready = unpacked(NativeIndex.ofHost());
        return ready;
    }

    private static NativeFiles unpacked(NativeIndex index) throws IOException {
        List<String> problems = new ArrayList<>();
        for (Path root : CacheFolders.all()) {
            try {
                return new NativeFiles(index, new Unpacking(index, root).folder());
            } catch (IOException cause) {
                problems.add(root + ": " + reason(cause));
            }
        }
        throw new IOException(String.join("; ", problems));
    }

    // Some of these exceptions say nothing but the path.
    private static String reason(IOException cause) {
        if (cause instanceof AccessDeniedException)
            return "permission denied";
        if (cause instanceof FileSystemException
                && ((FileSystemException) cause).getReason() != null)
            return ((FileSystemException) cause).getReason();
        return cause.getMessage();
    }

    File libraryFolder() {
        return folder.resolve("lib").toFile();
    }

    /** For a message: what the files need of the system. */
    String needs() {
        return index.needs();
    }
}
