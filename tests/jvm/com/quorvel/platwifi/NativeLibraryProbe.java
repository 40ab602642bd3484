package com.quorvel.platwifi;

/**
 * What a program sees that uses one of the classes: run in a virtual machine of its own. With an
 * argument it uses the cipher.
 */
final class NativeLibraryProbe {
    private NativeLibraryProbe() {}

    public static void main(String[] arguments) {
        try {
            System.out.println("called: " + (arguments.length == 0
                    ? BWifiPlatformService.hashCACertificates0()
                    : PlatformCrypt.encrypt("").startsWith("crypt")));
        } catch (UnsatisfiedLinkError error) {
            System.out.println(error);
        }
    }
}
