package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.quorvel.platwifi.StandIn;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

class SsidTest {
    @Test
    void isItsBytes() {
        assertEquals("café", Ssid.of("café").toString());
        assertEquals(5, Ssid.of("café").bytes().length);
        assertEquals(Ssid.of("café"), Ssid.of(StandIn.bytes("caf\udcc3\udca9")));
        assertEquals(Ssid.of("a").hashCode(), Ssid.of("a").hashCode());
        assertNotEquals(Ssid.of("a"), Ssid.of("b"));
        assertEquals("😀", Ssid.ofHex(Ssid.of("😀").hex()).text());
    }

    @Test
    void hasAtMost32Bytes() {
        assertEquals(32, Ssid.of("x".repeat(32)).bytes().length);
        Host.failure(Reason.WRONG_USE, () -> Ssid.of("x".repeat(33)));
        Host.failure(Reason.WRONG_USE, () -> Ssid.of("\ud800"));
        Host.failure(Reason.WRONG_USE, () -> Network.builder(""));
    }

    @ParameterizedTest
    @ValueSource(strings = {
        "home", "two words", "Café", "网络", "😀", "👩\u200D💻", "a\u0301", "100%", "C:\\\"x\"", "\\x41"})
    void printableTextIsShownAsItIs(String text) {
        assertEquals(text, Ssid.of(text).text());
        assertEquals(text, Ssid.of(text).toString());
    }

    @Test
    void whatIsNotPrintableIsShownByItsBytes() {
        assertEquals("a\\x0ab\\x09c\\x1b[2Jd\\x0de", Ssid.of("a\nb\tc\u001b[2Jd\re").text());
        assertEquals("\\x07\\x7f", Ssid.of("\u0007\u007f").text());
        assertEquals("\\xc2\\x9b31m", Ssid.of("\u009b31m").text());
        assertEquals("\\xe2\\x80\\xaeabc", Ssid.of("\u202eabc").text(), "changes the direction");
        assertEquals("a\\xe2\\x80\\xa8b", Ssid.of("a\u2028b").text(), "begins a line");
        assertEquals("\\xe2\\x80\\xa9", Ssid.of("\u2029").text(), "begins a paragraph");
        assertEquals("\\xee\\x80\\x80", Ssid.of("\ue000").text(), "is for private use");
    }

    /** A lone surrogate U+DCNN stands for the byte NN. */
    @Test
    void bytesThatAreNotUtf8AreShownAsSuch() {
        assertEquals("caf\\xe9 au lait", shown("caf\udce9 au lait"));
        assertEquals("😀\\xe9é", shown("😀\udce9é"));
        assertEquals("\\xf0\\x9f\\x98", shown("\udcf0\udc9f\udc98"));
        assertEquals("\\xed\\xa0\\x80", shown("\udced\udca0\udc80"));
        assertEquals("\\x80", shown("\udc80"));
    }

    @Test
    void anEmptyNameOrOneOfZerosIsHidden() {
        assertTrue(Ssid.of("").isHidden());
        assertTrue(Ssid.of(new byte[3]).isHidden());
        assertFalse(Ssid.of("\0a").isHidden());
        assertEquals("(hidden)", Ssid.of("").toString());
    }

    private static String shown(String text) {
        return Ssid.of(StandIn.bytes(text)).text();
    }
}
