package lab;

import com.quorvel.platwifi.BWifiPlatformService;

/** A network for each access point. */
final class Networks {
    static final int NONE = 0x1;
    static final int WPA_PSK = 0x2;
    static final int WPA_EAP = 0x4;
    static final int RSN = 0x2;
    static final int CCMP = 0x4;
    static final int TLS = 0x1;
    static final int PEAP = 0x2;
    static final int TTLS = 0x4;
    static final int SHARED = 2;

    static final String PASSPHRASE = Host.variable("LAB_PASSPHRASE");
    static final String PASSWORD = Host.variable("LAB_PASSWORD");

    private static final String WEP_KEY = Host.variable("LAB_WEP_KEY");

    private Networks() {}

    static Network open() {
        return new Network("open", "lab-open")
                .with(BWifiPlatformService::setKeyManagement0, NONE, "key_mgmt=NONE");
    }

    static Network psk(String passphrase) {
        return new Network("WPA2-PSK", "lab-psk")
                .with(BWifiPlatformService::setKeyManagement0, WPA_PSK, "key_mgmt=WPA-PSK")
                .with(BWifiPlatformService::setProtocol0, RSN, "proto=RSN")
                .with(BWifiPlatformService::setEncryption0, CCMP, "pairwise=CCMP", "group=CCMP")
                .with(BWifiPlatformService::setPriority0, 3, "priority=3")
                .secret(BWifiPlatformService::setPreSharedKey0, "psk", passphrase);
    }

    static Network hidden() {
        return new Network("hidden", "lab-hidden")
                .hidden()
                .secret(BWifiPlatformService::setPreSharedKey0, "psk", PASSPHRASE);
    }

    /** The access point knows only the first key. */
    static Network wep(int index) {
        Network network = new Network("WEP, shared", "lab-wep")
                .with(BWifiPlatformService::setKeyManagement0, NONE, "key_mgmt=NONE")
                .with(BWifiPlatformService::setAuthentication0, SHARED, "auth_alg=SHARED")
                .wepKey(0, WEP_KEY, WEP_KEY)
                .wepKey(1, "other", Network.quoted("other"));
        String[] line = index == 0 ? new String[0] : new String[] {"wep_tx_keyidx=" + index};
        return network.with(BWifiPlatformService::setWepIndex0, index, line);
    }

    static Network peap(String password) {
        return enterprise("PEAP", PEAP)
                .text(BWifiPlatformService::setEAPAnonymousIdentity0, "anonymous_identity",
                        "anybody")
                .text(BWifiPlatformService::setTunnelPhase20, "phase2", "auth=MSCHAPV2")
                .secret(BWifiPlatformService::setEAPPassword0, "password", password);
    }

    static Network ttls() {
        return enterprise("TTLS", TTLS)
                .text(BWifiPlatformService::setTunnelPhase20, "phase2", "auth=PAP")
                .secret(BWifiPlatformService::setEAPPassword0, "password", PASSWORD);
    }

    /** @param certificate the file of the client's certificate */
    static Network tls(String certificate) {
        return enterprise("TLS", TLS)
                .text(BWifiPlatformService::setClientCertificate0, "client_cert",
                        Host.certificate(certificate))
                .text(BWifiPlatformService::setPrivateKeyFile0, "private_key",
                        Host.certificate("client-encrypted.key"))
                .secret(BWifiPlatformService::setPrivateKeyPassword0, "private_key_passwd",
                        Host.variable("LAB_KEY_PASSWORD"));
    }

    private static Network enterprise(String method, int flag) {
        return new Network(method, "lab-eap")
                .with(BWifiPlatformService::setKeyManagement0, WPA_EAP, "key_mgmt=WPA-EAP")
                .with(BWifiPlatformService::setEAPMethod0, flag, "eap=" + method)
                .text(BWifiPlatformService::setEAPIdentity0, "identity",
                        Host.variable("LAB_IDENTITY"))
                .text(BWifiPlatformService::setCACertificate0, "ca_cert",
                        Host.certificate("ca.pem"));
    }
}
