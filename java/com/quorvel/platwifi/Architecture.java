package com.quorvel.platwifi;

import java.util.Locale;
import java.util.Optional;
import java.util.stream.Stream;

/** What each architecture is called: by Java, by this jar and by Debian's folders. */
enum Architecture {
    X86_64("amd64", "linux-x86_64", "x86_64-linux-gnu"),
    AARCH64("aarch64", "linux-aarch64", "aarch64-linux-gnu"),
    ARMHF("arm", "linux-armhf", "arm-linux-gnueabihf"),
    PPC("ppc", "linux-ppc", "powerpc-linux-gnu");

    /** The folder in the jar, below META-INF/native. */
    final String folder;
    /** The folder of the system's libraries, below /usr/lib. */
    final String multiarch;

    private final String javaName;

    Architecture(String javaName, String folder, String multiarch) {
        this.javaName = javaName;
        this.folder = folder;
        this.multiarch = multiarch;
    }

    /** That of this virtual machine, if it is one of these. */
    static Optional<Architecture> ofHost() {
        return Stream.of(values())
                .filter(one -> hostName().equals("linux-" + one.javaName)).findFirst();
    }

    /** The operating system and the architecture of this virtual machine, for a message. */
    static String hostName() {
        String system = System.getProperty("os.name").toLowerCase(Locale.ROOT);
        return system + "-" + System.getProperty("os.arch");
    }
}
