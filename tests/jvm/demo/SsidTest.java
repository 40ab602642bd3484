package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

class SsidTest {
    @ParameterizedTest
    @ValueSource(strings = {"home", "two words", "Café", "网络", "😀", "👩\u200D💻", "a\u0301", "100%"})
    void printableTextIsShownAsItIs(String text) {
        assertEquals(text, shown(text));
    }

    @Test
    void bytesAreReadAsUtf8() {
        assertEquals("é", shown("\\xc3\\xa9"));
        assertEquals("网络 😀", shown("\\xe7\\xbd\\x91\\xE7\\xBB\\x9C \\xf0\\x9f\\x98\\x80"));
    }

    @Test
    void bytesHaveNoEscapes() {
        assertEquals("\\x41 \\\\ \"Café\"", Ssid.ofBytes("\\x41 \\\\ \"Café\"").toString());
        assertEquals("😀\\xe9", Ssid.ofBytes("😀\uDCE9").toString());
    }

    @Test
    void backslashAndQuoteAreDecoded() {
        assertEquals("C:\\\"x\"", shown("C:\\\\\\\"x\\\""));
        assertEquals("\\x41", shown("\\\\x41"));
    }

    @Test
    void whatMovesTheCursorStaysEscaped() {
        assertEquals("a\\nb\\tc\\e[2Jd\\re", shown("a\\nb\\tc\\e[2Jd\\re"));
        assertEquals("a\\e[2J\\x07\\x7f", shown("a\u001b[2J\\x07\\x7f"));
        assertEquals("\\xe2\\x80\\xaeabc", shown("\\xe2\\x80\\xaeabc"));
        assertEquals("a\\xe2\\x80\\xa8b", shown("a\u2028b"));
    }

    @Test
    void bytesThatAreNotUtf8StayEscaped() {
        assertEquals("caf\\xe9 au lait", shown("caf\\xe9 au lait"));
        assertEquals("caf\\xe9", shown("caf\uDCE9"));
        assertEquals("😀\\xe9é", shown("😀\uDCE9é"));
        assertEquals("\\xf0\\x9f\\x98", shown("\\xf0\\x9f\\x98"));
        assertEquals("\\xed\\xa0\\x80", shown("\\xed\\xa0\\x80"));
    }

    @Test
    void bytesInBothNotationsFormOneCharacter() {
        assertEquals("é", shown("\uDCC3\\xa9"));
    }

    @Test
    void anEscapeThatIsCutShortIsText() {
        assertEquals("a\\", shown("a\\"));
        assertEquals("a\\x4", shown("a\\x4"));
        assertEquals("\\q", shown("\\q"));
    }

    @Test
    void anEmptyNameOrOneOfZerosIsHidden() {
        assertTrue(Ssid.fromClient("").isHidden());
        assertTrue(Ssid.fromClient("\\x00\\x00").isHidden());
        assertFalse(Ssid.fromClient("\\x00a").isHidden());
        assertEquals("(hidden)", shown(""));
    }

    private static String shown(String text) {
        return Ssid.fromClient(text).toString();
    }
}
