package lab;

/** Tests both profiles with access points of today: the rules in which they differ, and modern's networks. */
public final class ProfileJob {
    private ProfileJob() {}

    public static void main(String[] arguments) {
        Checks.section("rules of the profile", ProfileRules::followed);
        if (ProfileRules.IS_MODERN) {
            Checks.section("networks of today", NetworksOfToday::savedAndConnectedTo);
            Checks.section("names", NetworksOfToday::editedAndRemoved);
        }
        // An exit would unload the settings, which takes seconds.
        Runtime.getRuntime().halt(Checks.failures() == 0 ? 0 : 1);
    }
}
