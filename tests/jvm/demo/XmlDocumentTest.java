package demo;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;

class XmlDocumentTest {
    @TempDir
    Path folder;

    private final ByteArrayOutputStream out = new ByteArrayOutputStream();

    @Test
    void theProgramPrintsIt() throws Exception {
        print(Programs.make(folder, "echo \"<$1 name='网络'/>\"; cat"));
        assertEquals("<xml name='网络'/>\n", out.toString(StandardCharsets.UTF_8));
    }

    @Test
    void aProgramThatFailsIsExplained() throws IOException {
        String program = Programs.make(folder, "exit 3");
        Stop stop = assertThrows(Stop.class, () -> print(program));
        assertEquals(program + " xml ended with status 3; run it alone to see why",
                stop.getMessage());
    }

    @Test
    void aProgramThatIsNotThereIsExplained() {
        String program = folder.resolve("nothing").toString();
        Stop stop = assertThrows(Stop.class, () -> print(program));
        assertTrue(stop.getMessage().contains(program), stop::getMessage);
        assertTrue(stop.getMessage().endsWith("; give --xml the path of platwifi"),
                stop::getMessage);
    }

    private void print(String program) throws Stop {
        XmlDocument.print(program, new PrintStream(out, true, StandardCharsets.UTF_8));
    }
}
