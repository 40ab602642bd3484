package demo;

import java.io.PrintStream;
import java.util.concurrent.Executors;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.TimeUnit;
import java.util.function.Supplier;

/** Shows that something long is going on: its name at once, then a dot every half second. */
final class Progress {
    private final PrintStream out;
    private final ScheduledExecutorService dots =
            Executors.newSingleThreadScheduledExecutor(Progress::daemon);

    private Progress(PrintStream out) {
        this.out = out;
    }

    /** Does the work and gives its result; the line is complete when it returns. */
    static <T> T during(PrintStream out, String name, Supplier<T> work) {
        Progress progress = new Progress(out);
        progress.begin(name);
        try {
            return work.get();
        } finally {
            progress.end();
        }
    }

    private void begin(String name) {
        out.print(name + " ");
        out.flush();
        dots.scheduleAtFixedRate(this::dot, 0, 500, TimeUnit.MILLISECONDS);
    }

    private synchronized void dot() {
        if (dots.isShutdown())
            return;
        out.print(".");
        out.flush();
    }

    private synchronized void end() {
        dots.shutdown();
        out.println();
    }

    private static Thread daemon(Runnable work) {
        Thread thread = new Thread(work, "progress");
        thread.setDaemon(true);
        return thread;
    }
}
