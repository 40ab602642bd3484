package com.quorvel.platwifi;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Scripts the stand-in, which replaces the supplicant's client and the process lister, and returns
 * its calls. Rules are in order, each followed by its answer; {@link #play} activates them and
 * removes earlier calls.
 */
public final class StandIn {
    public static final String HEADER = "bssid / frequency / signal level / flags / ssid\n";

    private static final Path FOLDER = Path.of(System.getenv("PLATFORM_BOOT_DIR"));
    private static final Path SCRIPT = FOLDER.resolve("script");
    private static final Path CALLS = FOLDER.resolve("calls");

    private final List<String> lines = new ArrayList<>();

    /** Begins a rule for calls with exactly these arguments; "*" alone is any other call. */
    public StandIn when(String... arguments) {
        return line("when", arguments);
    }

    /** The rule holds only after a call with these arguments; "*" at the end stands for any further ones. */
    public StandIn after(String... arguments) {
        return line("after", arguments);
    }

    public StandIn print(String text) {
        return print(text.getBytes(StandardCharsets.UTF_8));
    }

    public StandIn print(byte[] text) {
        lines.add("print\t" + escaped(text));
        return this;
    }

    public StandIn exit(int status) {
        return line("exit", Integer.toString(status));
    }

    /** Begins the answer to the next call; the last answer repeats. */
    public StandIn then() {
        return line("then");
    }

    /** Rules for a scan on wlan0 with these bytes after the header. */
    public StandIn scan(byte[] results) {
        return idle().scanWorks().when("-iwlan0", "scan_results").print(HEADER).print(results);
    }

    public StandIn scan(String... results) {
        String text = Stream.of(results).map(line -> line + "\n").collect(Collectors.joining());
        return scan(text.getBytes(StandardCharsets.UTF_8));
    }

    /** Rules for loading the settings with wlan0 and these lines of the list of networks. */
    public StandIn settings(String... networks) {
        return when("interface").print("Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\n")
                .when("-iwlan0", "list_networks").print("network id / ssid / bssid / flags\n"
                        + Stream.of(networks).map(line -> line + "\n").collect(Collectors.joining()))
                .when("-iwlan0", "scan_results").print(HEADER)
                .idle().when("*").print("FAIL\n");
    }

    public StandIn idle() {
        return when("-iwlan0", "status").print("wpa_state=INACTIVE\n");
    }

    public StandIn scanWorks() {
        return when("-iwlan0", "scan").print("OK\n");
    }

    /** A rule for the process lister. */
    public StandIn processes(String list) {
        return when("-iwlan0", "arg").print(list);
    }

    public void play() {
        try {
            Path written = Files.write(FOLDER.resolve("script.new"), lines);
            Files.deleteIfExists(CALLS);
            Files.move(written, SCRIPT, StandardCopyOption.ATOMIC_MOVE);
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }

    /**
     * The calls since {@link #play}, each as its arguments joined by blanks, without the query that
     * the first use of the library in a process makes: JUnit chooses which test is the first.
     */
    public static List<String> calls() {
        try {
            if (!Files.exists(CALLS))
                return List.of();
            return Files.readAllLines(CALLS).stream()
                    .map(line -> line.substring(line.indexOf('\t') + 1).replace('\t', ' '))
                    .filter(arguments -> !arguments.equals("interface"))
                    .collect(Collectors.toList());
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }

    /** Bytes of a text in which a lone surrogate U+DCNN stands for the byte NN. */
    public static byte[] bytes(String text) {
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        text.codePoints().forEach(character -> {
            if (character >= 0xDC80 && character <= 0xDCFF)
                bytes.write(character & 0xff);
            else
                bytes.writeBytes(Character.toString(character).getBytes(StandardCharsets.UTF_8));
        });
        return bytes.toByteArray();
    }

    /** This text as {@link #calls} has it; a lone surrogate U+DCNN is the byte NN. */
    public static String recorded(String text) {
        return escaped(bytes(text));
    }

    private StandIn line(String word, String... values) {
        lines.add(Stream.concat(Stream.of(word), Stream.of(values)
                .map(value -> escaped(value.getBytes(StandardCharsets.UTF_8))))
                .collect(Collectors.joining("\t")));
        return this;
    }

    private static String escaped(byte[] text) {
        StringBuilder escaped = new StringBuilder();
        for (byte one : text) {
            if (one == '\\')
                escaped.append("\\\\");
            else if (one < ' ' || one > '~')
                escaped.append(String.format("\\x%02X", one));
            else
                escaped.append((char) one);
        }
        return escaped.toString();
    }
}
