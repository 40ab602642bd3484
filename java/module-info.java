/** Wi-Fi by the wpa_supplicant of the host: adapters, networks in range and the configured ones. */
module com.quorvel.platwifi {
    exports com.quorvel.platwifi;
    exports com.quorvel.platwifi.api;
}
