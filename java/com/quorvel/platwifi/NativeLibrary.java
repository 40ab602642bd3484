package com.quorvel.platwifi;

import java.io.File;
import java.util.ArrayList;
import java.util.List;

/** Finds and loads the native half, and says where it looked when there is none. */
final class NativeLibrary {
    static final String OVERRIDE = "platwifi.library";

    private static final String NAME = "platwifi";
    private static final String SEARCH_PATH = "java.library.path";

    private NativeLibrary() {}

    /**
     * Loads the file that the system property {@value #OVERRIDE} names, else the library
     * {@value #NAME} of the directories in {@value #SEARCH_PATH}.
     *
     * @throws UnsatisfiedLinkError with every place that was tried, the cause and what to set
     */
    static void load() {
        String override = System.getProperty(OVERRIDE);
        try {
            if (override == null)
                System.loadLibrary(NAME);
            else
                System.load(override);
        } catch (UnsatisfiedLinkError cause) {
            throw explained(places(override), cause);
        }
    }

    private static UnsatisfiedLinkError explained(List<String> places, UnsatisfiedLinkError cause) {
        UnsatisfiedLinkError error = new UnsatisfiedLinkError(String.format(
                "cannot load the Wi-Fi library: %s. Looked for: %s. Start Java with"
                        + " -D%s=FILE (the full path of %s) or with -D%s=DIRECTORY that holds it.",
                cause.getMessage(), String.join(", ", places), OVERRIDE, fileName(), SEARCH_PATH));
        error.initCause(cause);
        return error;
    }

    private static List<String> places(String override) {
        if (override != null)
            return List.of(described(new File(override)) + ", as " + OVERRIDE + " says");
        List<String> places = new ArrayList<>();
        for (File directory : searchPath())
            places.add(described(new File(directory, fileName())));
        return places.isEmpty() ? List.of("nowhere, " + SEARCH_PATH + " is empty") : places;
    }

    private static List<File> searchPath() {
        List<File> directories = new ArrayList<>();
        String path = System.getProperty(SEARCH_PATH, "");
        if (path.isEmpty())
            return directories;
        // An empty element is the working directory; limit -1 keeps one at the end.
        for (String element : path.split(File.pathSeparator, -1))
            directories.add(new File(element.isEmpty() ? "." : element));
        return directories;
    }

    private static String described(File file) {
        return file + (file.isFile() ? " (there)" : " (no such file)");
    }

    private static String fileName() {
        return System.mapLibraryName(NAME);
    }
}
