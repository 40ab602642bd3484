package com.quorvel.platwifi;

import java.io.IOException;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** The folders that may hold the unpacked files of this jar, in the order in which to try them. */
final class CacheFolders {
    /** The system property that names the only folder to use. */
    static final String OVERRIDE = "platwifi.cache";

    private CacheFolders() {}

    static List<Path> all() throws IOException {
        String override = System.getProperty(OVERRIDE);
        if (override != null)
            return List.of(Path.of(override).toAbsolutePath());
        List<Path> folders = new ArrayList<>();
        Path cache = ofUser();
        if (cache.isAbsolute()) // else there is no home
            folders.add(cache.resolve("platwifi"));
        folders.add(Path.of(System.getProperty("java.io.tmpdir"),
                "platwifi-" + PrivateFolder.ownUser()).toAbsolutePath());
        return folders;
    }

    private static Path ofUser() {
        String cache = System.getenv("XDG_CACHE_HOME");
        if (cache != null && Path.of(cache).isAbsolute())
            return Path.of(cache);
        return Path.of(System.getProperty("user.home", ""), ".cache");
    }
}
