package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** The profile of a process and its libraries, each case in a process of its own. */
class ProcessTest {
    private static final Path LIBRARY = Path.of(System.getProperty("platwifi.library"));

    private Host host;

    @TempDir
    Path directory;

    @BeforeEach
    void serve() {
        host = new Host();
        // Under the profile device, the SSID would be the text with the escape.
        Host.supplicant(new StandIn().when("-iwlan0", "list_networks")
                .print("network id / ssid / bssid / flags\n0\tcaf\\xc3\\xa9\tany\t\n"), "").play();
    }

    @AfterEach
    void close() {
        host.close();
    }

    @Test
    void theProfileIsModernWithoutAnyVariable() throws Exception {
        assertEquals("[café [WPA-PSK, WPA-EAP] ENABLED]\n", output(LIBRARY, null));
    }

    @Test
    void theProfileIsModernWhateverTheVariableSays() throws Exception {
        assertEquals("[café [WPA-PSK, WPA-EAP] ENABLED]\n", output(LIBRARY, "device"));
    }

    @Test
    void aProcessThatUsesTheProfileDeviceGetsAClearMessage() throws Exception {
        String text = output(LIBRARY, null, "first");
        assertTrue(text.startsWith("FAILED: this process uses the profile device already: "), text);
        assertTrue(text.contains("call Wifi.open before it"), text);
    }

    @Test
    void theOldClassMayBeUsedAsWellUnderTheProfileModern() throws Exception {
        assertEquals("[café [WPA-PSK, WPA-EAP] ENABLED]\n", output(LIBRARY, "modern", "first"));
    }

    @Test
    void aMissingLibraryIsNamed() throws Exception {
        for (String name : List.of("libplatwifi.so", "libplatform.so", "libzam.so"))
            Files.createSymbolicLink(directory.resolve(name), LIBRARY.resolveSibling(name));
        String text = output(directory.resolve("libplatwifi.so"), null);
        assertTrue(text.startsWith("FAILED: cannot load the library of the package"
                + " com.quorvel.platwifi.api: "), text);
        assertTrue(text.contains("libplatwifievents.so (no such file)"), text);
    }

    private static String output(Path library, String profile, String... arguments) throws Exception {
        List<String> command = new ArrayList<>(List.of(
                Path.of(System.getProperty("java.home"), "bin", "java").toString(),
                "-XX:TieredStopAtLevel=1", "-XX:+UseSerialGC", "-Dfile.encoding=UTF-8",
                "-Dstdout.encoding=UTF-8", "-Dplatwifi.library=" + library,
                "-cp", System.getProperty("java.class.path"), ProcessProbe.class.getName()));
        command.addAll(List.of(arguments));
        ProcessBuilder builder = new ProcessBuilder(command)
                .redirectError(ProcessBuilder.Redirect.INHERIT); // warnings of newer virtual machines
        builder.environment().remove("PLATWIFI_PROFILE");
        if (profile != null)
            builder.environment().put("PLATWIFI_PROFILE", profile);
        Process process = builder.start();
        String text = new String(process.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
        process.waitFor();
        return text;
    }
}
