package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

import java.util.ArrayList;
import java.util.List;
import java.util.function.Function;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** Each enumeration has the words of the native half, in their order. */
class EnumerationsTest {
    @BeforeAll
    static void load() {
        Natives.load();
    }

    @Test
    void reasonsAreTheCausesOfTheCommandLine() {
        assertEquals(words("reason"), wordsOf(Stream.of(Reason.values())
                .filter(Reason::isOfConnection).toArray(Reason[]::new), Reason::word));
    }

    @Test
    void eventsAreThoseOfMonitor() {
        assertEquals(words("event"), wordsOf(WifiEvent.Kind.values(), Words::wordOf));
    }

    @Test
    void securitiesAreThoseThatJoinKnows() {
        List<String> known = new ArrayList<>(words("security"));
        known.add(Security.OTHER.toString());
        assertEquals(known, wordsOf(Security.values(), Security::toString));
    }

    @Test
    void statesAreThoseOfTheSupplicant() {
        assertEquals(words("state"), wordsOf(WifiState.values(), WifiState::word));
    }

    @Test
    void keyManagementsAreThoseOfTheLibrary() {
        assertEquals(words("keyManagement"),
                wordsOf(KeyManagement.values(), KeyManagement::toString));
    }

    @Test
    void frameProtectionsAreThoseOfTheLibrary() {
        assertEquals(words("frameProtection"),
                wordsOf(FrameProtection.values(), FrameProtection::toString));
    }

    private static List<String> words(String table) {
        return List.of(Natives.words0(table));
    }

    private static <T> List<String> wordsOf(T[] constants, Function<T, String> word) {
        return Stream.of(constants).map(word).collect(Collectors.toList());
    }
}
