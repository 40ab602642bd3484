package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

class CellWidthTest {
    @ParameterizedTest
    @CsvSource({
        "'', 0",
        "home, 4",
        "Café, 4",
        "Cafe\u0301, 4",
        "a\u20DD, 1",
        "网络, 4",
        "カナ, 4",
        "ｶﾅ, 2",
        "한국, 4",
        "\u1112\u1161\u11AB, 2",
        "Ａ, 2",
        "😀, 2",
        "⌚, 2",
        "⌛, 2",
        "\u231C, 1",
        "\uD840\uDC00, 2",
        "\uD87F\uDFFD, 2",
        "ж, 1",
    })
    void countsTheCellsOfATerminal(String text, int cells) {
        assertEquals(cells, CellWidth.of(text));
    }
}
