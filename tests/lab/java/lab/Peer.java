package lab;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.PrintStream;

/** Another process that uses the settings. It executes commands, one a line. */
final class Peer implements AutoCloseable {
    private static final String PROGRAM = Host.variable("BUILD_DIR") + "/tests/settings_peer";
    private static final int NUMBER = 0; // part of a command; ignored

    private final Process process;
    private final PrintStream commands;
    private final BufferedReader answers;

    Peer() throws IOException {
        process = new ProcessBuilder(PROGRAM).redirectError(ProcessBuilder.Redirect.INHERIT)
                .start();
        commands = new PrintStream(process.getOutputStream(), true);
        answers = new BufferedReader(new InputStreamReader(process.getInputStream()));
    }

    boolean has(String ssid) {
        return does("has " + ssid);
    }

    boolean addOpen(String ssid) {
        return does("add " + ssid);
    }

    boolean save() {
        return does("save nothing");
    }

    /** Ends the process, which takes some seconds, without waiting for it. */
    @Override
    public void close() {
        commands.close();
    }

    private boolean does(String command) {
        try {
            commands.println(command + " " + NUMBER);
            String answer = answers.readLine();
            if (answer == null)
                throw new IllegalStateException(PROGRAM + " has ended");
            return answer.equals("yes");
        } catch (IOException cause) {
            throw new IllegalStateException(cause);
        }
    }
}
