package lab.api;

import com.quorvel.platwifi.api.*;
import java.util.concurrent.TimeUnit;

public class First {
    public static void main(String[] arguments) {
        String name = arguments[0];
        char[] key = arguments.length > 1 ? arguments[1].toCharArray() : System.console().readPassword("key: ");
        try (Wifi wifi = Wifi.open()) {
            for (AccessPoint ap : wifi.scan())
                System.out.println(ap.ssid() + " " + ap.signal() + " dBm " + ap.security());
            Connection made = wifi.join(name, Passphrase.of(key)).get(10, TimeUnit.MINUTES);
            System.out.println("connected to " + made);
        } catch (WifiException e) {
            System.err.println(e.reason() + ": " + e.getMessage());
        }
    }
}
