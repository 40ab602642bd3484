package com.quorvel.platwifi;

/** What a program sees that uses the class: run in a virtual machine of its own. */
final class NativeLibraryProbe {
    private NativeLibraryProbe() {}

    public static void main(String[] arguments) {
        try {
            System.out.println("called: " + BWifiPlatformService.hashCACertificates0());
        } catch (UnsatisfiedLinkError error) {
            System.out.println(error);
        }
    }
}
