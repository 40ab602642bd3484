package com.quorvel.platwifi.api;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;

/** A test with a host, and with its adapter open. */
abstract class AdapterTest {
    Host host;
    Wifi wifi;

    @BeforeEach
    void open() {
        host = new Host();
        play(new StandIn());
        wifi = Wifi.open("wlan0");
    }

    @AfterEach
    void close() {
        wifi.close();
        host.close();
    }

    /** The lines of the access points that a scan finds. */
    String accessPoints() {
        return "";
    }

    /** Activates a supplicant with these rules before its own, see {@link Host#supplicant}. */
    void play(StandIn rules) {
        Host.supplicant(rules, accessPoints()).play();
    }
}
