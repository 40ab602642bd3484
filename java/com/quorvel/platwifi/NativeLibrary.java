package com.quorvel.platwifi;

import java.io.File;
import java.util.ArrayList;
import java.util.List;

/** Finds and loads a library of the native half, and says where it looked when there is none. */
enum NativeLibrary {
    WIFI("platwifi", "the Wi-Fi library"),
    CRYPT("platwificrypt", "the library of the cipher"),
    EVENTS("platwifievents", "the library of the package com.quorvel.platwifi.api");

    static final String OVERRIDE = "platwifi.library";

    private static final String SEARCH_PATH = "java.library.path";

    private final String name;
    private final String title;

    NativeLibrary(String name, String title) {
        this.name = name;
        this.title = title;
    }

    /**
     * Loads the file that the system property {@value #OVERRIDE} names, or the library that stands
     * beside that file; without the property, from the directories in {@value #SEARCH_PATH}.
     *
     * @throws UnsatisfiedLinkError with every place that was tried, the cause and what to set
     */
    void load() {
        File override = override();
        try {
            if (override == null)
                System.loadLibrary(name);
            else
                System.load(override.getPath());
        } catch (UnsatisfiedLinkError cause) {
            throw explained(places(override), cause);
        }
    }

    private File override() {
        String wifi = System.getProperty(OVERRIDE);
        if (wifi == null || this == WIFI)
            return wifi == null ? null : new File(wifi);
        return new File(new File(wifi).getParentFile(), fileName());
    }

    private UnsatisfiedLinkError explained(List<String> places, UnsatisfiedLinkError cause) {
        UnsatisfiedLinkError error = new UnsatisfiedLinkError(String.format(
                "cannot load %s: %s. Looked for: %s. Start Java with"
                        + " -D%s=FILE (the full path of %s) or with -D%s=DIRECTORY that holds it.",
                title, cause.getMessage(), String.join(", ", places), OVERRIDE, WIFI.fileName(),
                SEARCH_PATH));
        error.initCause(cause);
        return error;
    }

    private List<String> places(File override) {
        if (override != null)
            return List.of(described(override) + ", as " + OVERRIDE + " says");
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

    private String fileName() {
        return System.mapLibraryName(name);
    }
}
