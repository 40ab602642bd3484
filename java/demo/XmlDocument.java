package demo;

import java.io.IOException;
import java.io.PrintStream;

/** The settings as an XML document, which the library writes for native programs only. */
final class XmlDocument {
    private XmlDocument() {}

    /** @param program  path of platwifi, whose command "xml" prints the document */
    static void print(String program, PrintStream out) throws Stop {
        try {
            int status = run(program, out);
            if (status != 0)
                throw new Stop("%s xml ended with status %d; run it alone to see why", program,
                        status);
        } catch (IOException e) {
            throw new Stop("%s; give --xml the path of platwifi", e.getMessage());
        } catch (InterruptedException e) {
            throw Stop.interrupted();
        }
    }

    private static int run(String program, PrintStream out)
            throws IOException, InterruptedException {
        Process process = new ProcessBuilder(program, "xml")
                .redirectError(ProcessBuilder.Redirect.INHERIT).start();
        process.getOutputStream().close();
        process.getInputStream().transferTo(out);
        return process.waitFor();
    }
}
