package com.quorvel.platwifi.api;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.io.UncheckedIOException;
import java.nio.charset.StandardCharsets;

/** The control socket of wlan0, which another program serves: see control_socket.cpp. */
public final class ControlSocket implements AutoCloseable {
    private final Process program;
    private final PrintStream input;
    private final BufferedReader output;

    ControlSocket() {
        try {
            program = new ProcessBuilder(System.getenv("CONTROL_SOCKET_PROGRAM"))
                    .redirectError(ProcessBuilder.Redirect.INHERIT).start();
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
        input = new PrintStream(program.getOutputStream(), true, StandardCharsets.UTF_8);
        output = new BufferedReader(
                new InputStreamReader(program.getInputStream(), StandardCharsets.UTF_8));
        awaitCommand("ready");
    }

    /** Waits for a listener. */
    void awaitListener() {
        awaitCommand("ATTACH");
    }

    /** Sends messages to all listeners. */
    void send(String... messages) {
        for (String message : messages)
            input.println("<3>" + message);
    }

    /** Waits for the listener of a scan, and reports the end of the scan to it. */
    public void finishScan() {
        awaitListener();
        send("CTRL-EVENT-SCAN-RESULTS ");
    }

    /** Ends as a killed supplicant does. */
    @Override
    public void close() {
        input.close();
        try {
            program.waitFor();
        } catch (InterruptedException e) {
            throw new IllegalStateException(e);
        }
    }

    private void awaitCommand(String command) {
        try {
            for (String line = output.readLine(); line != null; line = output.readLine()) {
                if (line.equals(command))
                    return;
            }
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
        throw new IllegalStateException("the program of the control socket has ended");
    }
}
