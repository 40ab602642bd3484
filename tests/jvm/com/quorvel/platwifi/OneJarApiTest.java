package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;

import java.util.Map;

/** Which libraries the typed API loads in a program with the one jar. */
class OneJarApiTest extends OneJarFixture {
    @Test
    void itsOwnFilesAreLoaded() throws Exception {
        String output = JavaProgram.output(program.start(OneJarApiProbe.class, Map.of()));
        assertEquals(OneJar.loadedFrom(program.cache(), "libplatwifievents.so"), output);
    }
}
