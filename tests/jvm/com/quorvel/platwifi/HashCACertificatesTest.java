package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

import java.util.List;

class HashCACertificatesTest {
    // API-7
    @Test
    void isTrueAndStartsNoProgram() {
        new StandIn().play();
        assertTrue(BWifiPlatformService.hashCACertificates0());
        assertEquals(List.of(), StandIn.calls());
    }
}
