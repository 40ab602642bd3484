package lab;

/** Tests the library from Java with real access points and the real supplicant. */
public final class LabJob {
    private LabJob() {}

    public static void main(String[] arguments) {
        Checks.section("networks of every kind", ConfiguredNetworks::savedAndConnectedTo);
        Checks.section("TTLS and TLS", ConfiguredNetworks::tunnelAndCertificate);
        Checks.section("a wrong passphrase", Refusals::wrongPassphrase);
        Checks.section("enterprise refusals", Refusals::enterprise);
        Checks.section("another process", OtherProcess::seesWhatIsSaved);
        Checks.section("a suspended supplicant", SuspendedSupplicant::failsInTime);
        // An exit would unload the settings, which takes seconds.
        Runtime.getRuntime().halt(Checks.failures() == 0 ? 0 : 1);
    }
}
