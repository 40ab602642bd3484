package lab;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.util.List;
import java.util.stream.Collectors;

/** The virtual machine that the job runs in. */
final class Host {
    private Host() {}

    static String variable(String name) {
        String value = System.getenv(name);
        if (value == null)
            throw new IllegalStateException(name + " is not set; run this as a job of the lab");
        return value;
    }

    static String certificate(String file) {
        return variable("LAB_CERTIFICATES") + "/" + file;
    }

    /** The standard output of a command, which must succeed. */
    static List<String> run(String... command) {
        try {
            Process process = new ProcessBuilder(command)
                    .redirectError(ProcessBuilder.Redirect.INHERIT).start();
            String output = new String(process.getInputStream().readAllBytes(),
                    StandardCharsets.UTF_8);
            if (process.waitFor() != 0)
                throw new IllegalStateException(command[0] + " failed: " + output);
            return output.lines().collect(Collectors.toList());
        } catch (IOException | InterruptedException cause) {
            throw new IllegalStateException(cause);
        }
    }
}
