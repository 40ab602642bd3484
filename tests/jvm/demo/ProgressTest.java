package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.concurrent.CountDownLatch;

class ProgressTest {
    private final CountDownLatch dots = new CountDownLatch(2);
    private final ByteArrayOutputStream bytes = new ByteArrayOutputStream() {
        @Override
        public synchronized void write(byte[] text, int start, int length) {
            super.write(text, start, length);
            if (new String(text, start, length, StandardCharsets.UTF_8).equals("."))
                dots.countDown();
        }
    };
    private final PrintStream out = new PrintStream(bytes, true, StandardCharsets.UTF_8);

    @Test
    void dotsFollowWhileTheOperationRuns() throws Stop {
        assertEquals("done", Progress.during(out, "Scanning",
                show -> workUntilTwoDotsAreOut()));
        assertTrue(printed().matches("Scanning \\.{2,}\n"), printed());
    }

    @Test
    void wordsOfTheOperationAreBetweenTheDots() throws Stop {
        Progress.during(out, "Connecting", show -> {
            show.accept("SCANNING");
            workUntilTwoDotsAreOut();
            show.accept("COMPLETED");
            return null;
        });
        assertTrue(printed().matches("Connecting( \\.)? SCANNING \\.+ COMPLETED\n"), printed());
    }

    @Test
    void aFullLineIsContinuedOnTheNext() throws Stop {
        Progress.during(out, "Connecting", show -> {
            for (int i = 0; i < 20; ++i)
                show.accept("SCANNING");
            return null;
        });
        assertTrue(printed().lines().allMatch(line -> line.length() <= 80), printed());
        assertTrue(printed().lines().skip(1).allMatch(line -> line.startsWith("    ")), printed());
        assertEquals(20, printed().split("SCANNING", -1).length - 1);
    }

    @Test
    void anOperationThatFailsEndsTheLineToo() {
        assertThrows(IllegalStateException.class, () -> Progress.during(out, "Scanning", show -> {
            throw new IllegalStateException();
        }));
        assertTrue(printed().endsWith("\n"), printed());
    }

    private String workUntilTwoDotsAreOut() {
        try {
            dots.await();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
        return "done";
    }

    private String printed() {
        return bytes.toString(StandardCharsets.UTF_8);
    }
}
