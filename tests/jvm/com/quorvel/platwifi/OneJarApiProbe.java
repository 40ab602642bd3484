package com.quorvel.platwifi;

import com.quorvel.platwifi.api.Wifi;
import com.quorvel.platwifi.api.WifiException;

import java.io.IOException;

/**
 * A program that uses the package {@code com.quorvel.platwifi.api} alone, run with one jar in
 * another virtual machine. It prints the files of the two libraries that this package loads.
 */
public final class OneJarApiProbe {
    private OneJarApiProbe() {}

    public static void main(String[] arguments) throws IOException {
        try {
            Wifi.open("nothing").close();
        } catch (WifiException refused) {
            if (refused.getCause() instanceof UnsatisfiedLinkError)
                System.out.println(refused.getMessage());
        }
        System.out.println(OneJarProbe.loaded("/libplatwifi.so") + "\n"
                + OneJarProbe.loaded("/libplatwifievents.so"));
    }
}
