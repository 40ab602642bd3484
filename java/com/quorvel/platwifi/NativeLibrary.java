package com.quorvel.platwifi;

import java.io.File;
import java.io.IOException;
import java.util.stream.Collectors;

/**
 * Finds and loads a library of the native half, and says where it looked when there is none. The
 * first of these that holds the library decides: the file that the system property
 * {@value #OVERRIDE} names, the directories in {@code java.library.path}, those where a package or
 * an installation puts it, the files in this jar.
 */
enum NativeLibrary {
    WIFI("platwifi", "the Wi-Fi library", "libplatwifi.so.1"),
    CRYPT("platwificrypt", "the library of the cipher"),
    EVENTS("platwifievents", "the library of the package com.quorvel.platwifi.api");

    static final String OVERRIDE = "platwifi.library";

    private final String name;
    private final String title;
    private final String installedName;

    /** A library that is installed in the private folder beside that of {@link #WIFI}. */
    NativeLibrary(String name, String title) {
        this(name, title, "platwifi/" + System.mapLibraryName(name));
    }

    NativeLibrary(String name, String title, String installedName) {
        this.name = name;
        this.title = title;
        this.installedName = installedName;
    }

    /**
     * Loads the library.
     *
     * @throws UnsatisfiedLinkError with what was tried, the cause and what to set
     */
    void load() {
        String override = System.getProperty(OVERRIDE);
        if (override != null)
            loadAsNamed(new File(override));
        else
            loadByName();
    }

    private void loadAsNamed(File wifi) {
        File file = this == WIFI ? wifi : in(wifi.getParentFile());
        load(file, lookedFor(described(file) + ", as " + OVERRIDE + " says"));
    }

    // The class loader is asked first: that of a container may hold libraries of its own.
    private void loadByName() {
        try {
            System.loadLibrary(name);
        } catch (UnsatisfiedLinkError cause) {
            loadFromFolders(cause);
        }
    }

    private void loadFromFolders(UnsatisfiedLinkError cause) {
        for (File folder : LibraryFolders.all()) {
            File file = in(folder);
            if (file.isFile()) {
                load(file.getAbsoluteFile(), lookedFor(described(file)));
                return;
            }
        }
        if (!NativeIndex.isInJar())
            throw explained(cause.getMessage() + NativeIndex.described(), lookedFor(places()),
                    cause);
        loadFromJar();
    }

    private void loadFromJar() {
        NativeFiles files;
        try {
            files = NativeFiles.unpacked();
        } catch (IOException cause) {
            throw explained("its files in this jar cannot be unpacked: " + cause.getMessage(),
                    "Start Java with -D" + CacheFolders.OVERRIDE + "=DIRECTORY that belongs to this"
                            + " user, where files can be written and executed.", cause);
        }
        load(in(files.libraryFolder()), files.needs() + " " + advice());
    }

    private void load(File file, String explanation) {
        try {
            System.load(file.getPath());
        } catch (UnsatisfiedLinkError cause) {
            throw explained(cause.getMessage(), explanation, cause);
        }
    }

    /** The library in a folder: as it is installed, else as a build names it. */
    private File in(File folder) {
        File installed = new File(folder, installedName);
        return installed.isFile() ? installed : new File(folder, fileName());
    }

    private UnsatisfiedLinkError explained(String what, String explanation, Throwable cause) {
        UnsatisfiedLinkError error = new UnsatisfiedLinkError(
                String.format("cannot load %s: %s. %s", title, what, explanation));
        error.initCause(cause);
        return error;
    }

    private static String lookedFor(String places) {
        return "Looked for: " + places + ". " + advice();
    }

    private String places() {
        return LibraryFolders.all().stream().map(folder -> described(in(folder)))
                .collect(Collectors.joining(", "));
    }

    private static String advice() {
        return String.format("Start Java with -D%s=FILE (the full path of %s) or with"
                + " -D%s=DIRECTORY that holds it.", OVERRIDE, WIFI.fileName(),
                LibraryFolders.SEARCH_PATH);
    }

    private static String described(File file) {
        return file + (file.isFile() ? " (there)" : " (no such file)");
    }

    private String fileName() {
        return System.mapLibraryName(name);
    }
}
