package lab;

import java.util.function.BooleanSupplier;
import java.util.function.Supplier;

/** Prints a line for each check, and counts those that failed. */
final class Checks {
    interface Steps {
        void run() throws Exception;
    }

    private static int failures;

    private Checks() {}

    static int failures() {
        return failures;
    }

    static void check(String title, boolean isRight) {
        check(title, isRight, () -> "no");
    }

    /** @param found the value if the check fails; without secrets */
    static void check(String title, boolean isRight, Supplier<String> found) {
        System.out.println(isRight ? "ok      " + title : "FAILED  " + title + ": " + found.get());
        if (!isRight)
            ++failures;
    }

    static void equal(String title, Object wanted, Object found) {
        check(title, wanted.equals(found), () -> found + " instead of " + wanted);
    }

    /** An exception ends these steps only, and counts as a failure. */
    static void section(String title, Steps steps) {
        long start = System.nanoTime();
        try {
            steps.run();
        } catch (Exception | LinkageError thrown) {
            check(title, false, thrown::toString);
        }
        System.out.printf("        %s: %.1f s%n", title, Wait.secondsSince(start));
    }

    static void eventually(String title, BooleanSupplier condition, Supplier<String> found) {
        check(title, Wait.until(condition), found);
    }
}
