package demo;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.io.TempDir;

import java.nio.file.Path;

/** A test of the whole program. */
abstract class DemoTest {
    @TempDir
    Path folder;

    final DemoRun demo = new DemoRun();

    @AfterEach
    void close() {
        demo.close();
    }
}
