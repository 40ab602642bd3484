package com.quorvel.platwifi.api;

import com.quorvel.platwifi.BWifiPlatformService;

/** A program of its own that opens a Wifi; with an argument it loads the networks by the old class first. */
final class ProcessProbe {
    private ProcessProbe() {}

    public static void main(String[] arguments) {
        if (arguments.length > 0)
            BWifiPlatformService.getDaemonStatus0("wlan0");
        try (Wifi wifi = Wifi.open("wlan0")) {
            System.out.println(wifi.networks());
        } catch (WifiException e) {
            System.out.println(e.reason() + ": " + e.getMessage());
        }
    }
}
