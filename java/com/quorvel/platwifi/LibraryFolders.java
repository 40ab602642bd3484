package com.quorvel.platwifi;

import java.io.File;
import java.util.ArrayList;
import java.util.List;

/** The folders in which a library may be installed, the first that holds it wins. */
final class LibraryFolders {
    static final String SEARCH_PATH = "java.library.path";

    private LibraryFolders() {}

    static List<File> all() {
        List<File> folders = searchPath();
        folders.addAll(installed());
        return folders;
    }

    /** Those of a system, which not every virtual machine has in its default search path. */
    static List<File> installed() {
        List<File> folders = new ArrayList<>();
        folders.add(new File("/usr/local/lib"));
        Architecture.ofHost().ifPresent(
                host -> folders.add(new File("/usr/lib/" + host.multiarch)));
        folders.add(new File("/usr/lib64"));
        folders.add(new File("/usr/lib"));
        return folders;
    }

    private static List<File> searchPath() {
        List<File> folders = new ArrayList<>();
        String path = System.getProperty(SEARCH_PATH, "");
        if (path.isEmpty())
            return folders;
        // An empty element is the working directory; limit -1 keeps one at the end.
        for (String element : path.split(File.pathSeparator, -1))
            folders.add(new File(element.isEmpty() ? "." : element));
        return folders;
    }
}
