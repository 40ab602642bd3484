package demo;

import java.io.PrintStream;
import java.util.ArrayList;
import java.util.List;

/** Prints rows under headings, each column as wide as its widest cell. */
final class Table {
    enum Align { LEFT, RIGHT }

    private static final String GAP = "  ";

    private final List<Align> aligns = new ArrayList<>();
    private final List<Integer> widths = new ArrayList<>();
    private final List<List<String>> rows = new ArrayList<>();

    Table() {
        rows.add(new ArrayList<>());
    }

    /** Adds a column. All columns have to be added before the first row. */
    Table column(String heading, Align align) {
        rows.get(0).add(heading);
        aligns.add(align);
        widths.add(CellWidth.of(heading));
        return this;
    }

    /** Adds a row with one cell for each column. */
    void row(Object... values) {
        if (values.length != aligns.size())
            throw new IllegalArgumentException(
                    values.length + " cells for " + aligns.size() + " columns");
        List<String> cells = new ArrayList<>();
        for (Object value : values)
            cells.add(String.valueOf(value));
        for (int i = 0; i < cells.size(); ++i)
            widths.set(i, Math.max(widths.get(i), CellWidth.of(cells.get(i))));
        rows.add(cells);
    }

    void print(PrintStream out) {
        for (List<String> cells : rows)
            out.println(line(cells));
    }

    private String line(List<String> cells) {
        List<String> padded = new ArrayList<>();
        for (int i = 0; i < cells.size(); ++i)
            padded.add(padded(cells.get(i), widths.get(i), aligns.get(i)));
        return String.join(GAP, padded).stripTrailing();
    }

    private static String padded(String cell, int width, Align align) {
        String blanks = " ".repeat(width - CellWidth.of(cell));
        return align == Align.LEFT ? cell + blanks : blanks + cell;
    }
}
