package demo;

/** The profile that the library takes from the environment. */
final class LibraryProfile {
    static final boolean IS_MODERN = "modern".equals(System.getenv("PLATWIFI_PROFILE"));

    private LibraryProfile() {}
}
