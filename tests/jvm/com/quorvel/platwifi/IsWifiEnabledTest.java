package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;

class IsWifiEnabledTest {
    private static final Path PID_FILE = Path.of("/var/run/wpa_supplicant.pid");
    private static final String SUPPLICANT = "4711 /sbin/wpa_supplicant -B -iwlan0\n";

    @BeforeEach
    void resetTheStandIn() {
        new StandIn().play();
    }

    @AfterEach
    void removePidFile() throws IOException {
        Files.deleteIfExists(PID_FILE);
    }

    @Test
    void withoutInterfaceThePidFileDecides() throws IOException {
        assertFalse(BWifiPlatformService.isWifiEnabled0(null));
        Files.createFile(PID_FILE);
        assertTrue(BWifiPlatformService.isWifiEnabled0(null));
        Files.delete(PID_FILE);
        assertFalse(BWifiPlatformService.isWifiEnabled0(null));
    }

    @Test
    void withoutInterfaceNoProgramIsStarted() {
        BWifiPlatformService.isWifiEnabled0(null);
        assertEquals(List.of(), StandIn.calls());
    }

    @Test
    void withInterfaceTheProcessListDecides() {
        new StandIn().processes("1 /sbin/init\n" + SUPPLICANT + "4712 /bin/sh\n").play();
        assertTrue(BWifiPlatformService.isWifiEnabled0("wlan0"));
        assertEquals(List.of("-iwlan0 arg"), StandIn.calls());
    }

    @Test
    void aListWithoutSupplicantMeansFalse() throws IOException {
        Files.createFile(PID_FILE);
        new StandIn().processes("1 /sbin/init\n4712 /bin/sh\n").play();
        assertFalse(BWifiPlatformService.isWifiEnabled0("wlan0"));
    }

    @Test
    void anEmptyListMeansFalse() {
        new StandIn().processes("").play();
        assertFalse(BWifiPlatformService.isWifiEnabled0("wlan0"));
    }

    @Test
    void aListerThatFailsMeansFalseForAnyOutput() {
        new StandIn().processes(SUPPLICANT).exit(1).play();
        assertFalse(BWifiPlatformService.isWifiEnabled0("wlan0"));
    }

    @Test
    void aListerThatIsMissingMeansFalse() throws IOException {
        Path lister = Path.of(System.getenv("PLATFORM_BOOT_DIR"), "pidin");
        Path aside = lister.resolveSibling("pidin.aside");
        Files.move(lister, aside);
        try {
            assertFalse(BWifiPlatformService.isWifiEnabled0("wlan0"));
        } finally {
            Files.move(aside, lister);
        }
    }

    @Test
    void aNameThatIsTooLongMeansFalse() {
        new StandIn().when("*").print(SUPPLICANT).play();
        assertTrue(BWifiPlatformService.isWifiEnabled0("a".repeat(13)));
        assertFalse(BWifiPlatformService.isWifiEnabled0("a".repeat(14)));
        assertFalse(BWifiPlatformService.isWifiEnabled0("a".repeat(100_000)));
    }
}
