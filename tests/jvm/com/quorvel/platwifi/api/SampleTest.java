package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.concurrent.TimeUnit;

/** The program of the documentation: no other exception has to be caught. */
class SampleTest {
    @Test
    void reportsAWrongKey() {
        StandIn rules = new StandIn();
        Host.supplicant(rules, Host.accessPoint("cafe", Host.WPA2)).play();
        try (Host host = new Host()) {
            Thread events = new Thread(() -> {
                host.socket.finishScan(); // of the program
                host.socket.finishScan(); // of its join
                host.socket.awaitListener();
                Host.awaitCall("select 1");
                host.socket.send(
                        "Trying to associate with 02:00:00:00:01:00 (SSID='cafe' freq=2412 MHz)",
                        "WPA: 4-Way Handshake failed - pre-shared key may be incorrect");
            });
            events.start();
            assertEquals("cafe -40 dBm WPA2-PSK\n"
                    + "WRONG_KEY: cafe is not connected: the access point refuses the key; "
                    + Reason.WRONG_KEY.nextStep() + "\n", output(Host.SECRET.toCharArray()));
        }
    }

    private static String output(char[] chars) {
        ByteArrayOutputStream text = new ByteArrayOutputStream();
        PrintStream out = System.out;
        PrintStream err = System.err;
        PrintStream both = new PrintStream(text, true, StandardCharsets.UTF_8);
        System.setOut(both);
        System.setErr(both);
        try {
            run(chars);
        } finally {
            System.setOut(out);
            System.setErr(err);
        }
        return text.toString(StandardCharsets.UTF_8);
    }

    private static void run(char[] chars) {
        try (Wifi wifi = Wifi.open("wlan0")) {
            for (AccessPoint ap : wifi.scan()) System.out.println(ap.ssid() + " " + ap.signal() + " dBm " + ap.security());
            Connection link = wifi.join("cafe", Passphrase.of(chars)).get(30, TimeUnit.SECONDS);
            System.out.println(link);
        } catch (WifiException e) { System.err.println(e.reason() + ": " + e.getMessage()); }
    }
}
