package com.quorvel.platwifi;

import java.io.IOException;
import java.nio.file.FileAlreadyExistsException;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.attribute.FileAttribute;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.Map;
import java.util.Set;

/**
 * A folder in which this user alone can put files. What is loaded from it runs with the rights of
 * this user, so that another user must not be able to change or to replace it.
 */
final class PrivateFolder {
    static final FileAttribute<Set<PosixFilePermission>> MODE =
            PosixFilePermissions.asFileAttribute(PosixFilePermissions.fromString("rwx------"));

    private static final int TYPE = 0170000;
    private static final int FOLDER = 0040000;
    private static final int LINK = 0120000;
    private static final int STICKY = 01000;
    private static final int WRITE_BY_OTHERS = 0022;
    private static final int ROOT = 0;

    private PrivateFolder() {}

    /**
     * Makes the folder if it is not there.
     *
     * @throws IOException if it cannot be made, or is there and not private
     */
    static void create(Path folder) throws IOException {
        Path parent = folder.getParent();
        if (parent != null && !Files.isDirectory(parent))
            Files.createDirectories(parent, MODE);
        try {
            Files.createDirectory(folder, MODE);
        } catch (FileAlreadyExistsException there) {
            // It is checked below.
        }
        require(folder);
        requireSafeParents(folder);
    }

    /** @throws IOException unless it is a folder of this user which no other can change. */
    static void require(Path folder) throws IOException {
        Map<String, Object> facts =
                Files.readAttributes(folder, "unix:uid,mode", LinkOption.NOFOLLOW_LINKS);
        int mode = (int) facts.get("mode");
        int owner = (int) facts.get("uid");
        if ((mode & TYPE) == LINK)
            throw new IOException(folder + " is a symbolic link");
        if ((mode & TYPE) != FOLDER)
            throw new IOException(folder + " is not a directory");
        if (owner != ownUser())
            throw new IOException(folder + " belongs to the user " + owner);
        if ((mode & WRITE_BY_OTHERS) != 0)
            throw new IOException("other users may write to " + folder);
    }

    // The owner of a folder above, and users who may write to it, could put another folder in this
    // one's place.
    private static void requireSafeParents(Path folder) throws IOException {
        Path parent = folder.toRealPath().getParent();
        for (; parent != null; parent = parent.getParent()) {
            Map<String, Object> facts = Files.readAttributes(parent, "unix:uid,mode");
            int mode = (int) facts.get("mode");
            int owner = (int) facts.get("uid");
            if ((mode & WRITE_BY_OTHERS) != 0 && (mode & STICKY) == 0)
                throw new IOException("other users may write to " + parent);
            if (owner != ROOT && owner != ownUser() && !isOutside(owner))
                throw new IOException(parent + " belongs to the user " + owner);
        }
    }

    // In a container that does not know all users, the kernel gives one number to all others, root
    // among them.
    private static boolean isOutside(int owner) throws IOException {
        String overflow = Files.readString(Path.of("/proc/sys/kernel/overflowuid")).trim();
        String map = Files.readString(Path.of("/proc/self/uid_map")).trim();
        return String.valueOf(owner).equals(overflow) && !map.matches("0\\s+0\\s+4294967295");
    }

    /** The number of the user whose rights this process has. */
    static int ownUser() throws IOException {
        for (String line : Files.readAllLines(Path.of("/proc/self/status")))
            if (line.startsWith("Uid:"))
                return Integer.parseUnsignedInt(line.split("\\s+")[2]); // the second: effective
        throw new IOException("/proc/self/status names no user");
    }
}
