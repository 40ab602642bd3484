package demo;

import com.quorvel.platwifi.api.Reason;
import com.quorvel.platwifi.api.WifiException;

/** Ends the program. The message names the cause and the next step. */
final class Stop extends Exception {
    private static final long serialVersionUID = 1L;
    /** The status of an end by a signal. The virtual machine has its own for that, and ends by itself. */
    static final int INTERRUPTED = 128;

    private static final int FAILED = 1;
    private static final int WRONG_USE = 2;

    /** The exit status of the program. */
    final int status;

    Stop(String format, Object... values) {
        this(FAILED, String.format(format, values));
    }

    private Stop(int status, String message) {
        super(message);
        this.status = status;
    }

    /** The failure of an operation of the library, which has such a message. */
    static Stop of(WifiException failure) {
        Stop stop = failure.reason() == Reason.INTERRUPTED ? interrupted()
                                                           : new Stop(FAILED, failure.getMessage());
        for (Throwable further : failure.getSuppressed())
            stop.addSuppressed(further);
        return stop;
    }

    static Stop wrongUse(String cause) {
        return new Stop(WRONG_USE, cause + "; usage: wifi-demo " + Options.USAGE);
    }

    static Stop interrupted() {
        return new Stop(INTERRUPTED, "it was interrupted; start it again to see the rest");
    }
}
