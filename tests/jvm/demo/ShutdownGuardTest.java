package demo;

import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

class ShutdownGuardTest {
    private final ShutdownGuard guard = new ShutdownGuard();

    @Test
    void aSignalInterruptsTheProgram() {
        guard.interrupt();
        assertTrue(Thread.interrupted());
    }

    @Test
    void aSignalDoesNotInterruptWhatUndoesTheChanges() {
        guard.endInterruptions();
        guard.interrupt();
        assertFalse(Thread.interrupted());
    }

    @Test
    void anEarlierSignalDoesNotEither() {
        guard.interrupt();
        guard.endInterruptions();
        assertFalse(Thread.interrupted());
    }
}
