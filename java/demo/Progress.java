package demo;

import java.io.PrintStream;
import java.util.concurrent.Executors;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.TimeUnit;
import java.util.function.Consumer;

/**
 * Shows the progress of an operation on a line: its name and a dot at once, a dot every half
 * second, and between the dots the words that the operation shows.
 */
final class Progress {
    interface Work<T> {
        /** @param show  shows a word */
        T run(Consumer<String> show) throws Stop;
    }

    private static final int WIDTH = 80;
    private static final String INDENT = "   ";

    private final PrintStream out;
    private final ScheduledExecutorService dots =
            Executors.newSingleThreadScheduledExecutor(Progress::daemon);
    private boolean isAfterDot;
    private int column;

    private Progress(PrintStream out) {
        this.out = out;
    }

    /** Runs the operation and returns its result; the line is complete then. */
    static <T> T during(PrintStream out, String name, Work<T> work) throws Stop {
        Progress progress = new Progress(out);
        progress.begin(name);
        try {
            return work.run(progress::word);
        } finally {
            progress.end();
        }
    }

    private void begin(String name) {
        print(name);
        dot();
        dots.scheduleAtFixedRate(this::dot, 500, 500, TimeUnit.MILLISECONDS);
    }

    private synchronized void dot() {
        if (dots.isShutdown())
            return;
        print(isAfterDot ? "." : " .");
        isAfterDot = true;
    }

    private synchronized void word(String word) {
        print(" " + word);
        isAfterDot = false;
    }

    private synchronized void end() {
        dots.shutdown();
        out.println();
    }

    private void print(String text) {
        if (column + CellWidth.of(text) > WIDTH) {
            out.print("\n" + INDENT);
            column = INDENT.length();
        }
        out.print(text);
        out.flush();
        column += CellWidth.of(text);
    }

    private static Thread daemon(Runnable work) {
        Thread thread = new Thread(work, "progress");
        thread.setDaemon(true);
        return thread;
    }
}
