package com.quorvel.platwifi;

/**
 * A program that uses one of the classes, run in another virtual machine. With an argument it uses
 * the cipher.
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
