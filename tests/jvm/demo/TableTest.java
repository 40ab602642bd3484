package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import org.junit.jupiter.api.Test;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;

class TableTest {
    private final Table table = new Table()
            .column("Name", Table.Align.LEFT)
            .column("MHz", Table.Align.RIGHT)
            .column("Security", Table.Align.LEFT);

    @Test
    void aTableWithoutRowsIsItsHeadings() {
        assertPrinted("Name  MHz  Security\n");
    }

    @Test
    void columnsAreAsWideAsTheirWidestCell() {
        table.row("a longer name", 2412, "open");
        table.row("b", 5, "WEP");
        assertPrinted("Name            MHz  Security\n"
                + "a longer name  2412  open\n"
                + "b                 5  WEP\n");
    }

    @Test
    void wideAndCombiningCharactersKeepTheColumnsStraight() {
        table.row("网络😀", 1, "x");
        table.row("e\u0301", 1, "x");
        assertPrinted("Name    MHz  Security\n"
                + "网络😀    1  x\n"
                + "e\u0301         1  x\n");
    }

    @Test
    void aRowHasACellForEachColumn() {
        assertThrows(IllegalArgumentException.class, () -> table.row("alone"));
    }

    private void assertPrinted(String expected) {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        table.print(new PrintStream(out, false, StandardCharsets.UTF_8));
        assertEquals(expected, out.toString(StandardCharsets.UTF_8));
    }
}
