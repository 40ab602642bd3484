package lab;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The networks of the supplicant's configuration file, in its order; the lines of each sorted. */
final class ConfigurationFile {
    private static final Path PATH = Path.of(Host.variable("LAB_SUPPLICANT_CONF"));

    /** A line that the supplicant writes for every network. */
    private static final String ALWAYS_WRITTEN = "mesh_fwding=1";

    private ConfigurationFile() {}

    static void checkHolds(String title, Network... networks) {
        checkHolds(title, Stream.of(networks).map(Network::block).collect(Collectors.toList()));
    }

    static void checkHolds(String title, List<List<String>> wanted) {
        List<List<String>> found = blocks();
        Checks.check(title, wanted.equals(found), () -> differences(wanted, found));
    }

    static List<List<String>> blocks() {
        List<List<String>> blocks = new ArrayList<>();
        List<String> block = null;
        for (String line : lines()) {
            if (line.equals("network={"))
                blocks.add(block = new ArrayList<>());
            else if (line.equals("}"))
                block = sortedAndEnded(block);
            else if (block != null)
                addSet(block, line.strip());
        }
        return blocks;
    }

    private static void addSet(List<String> block, String line) {
        if (!line.equals(ALWAYS_WRITTEN))
            block.add(line);
    }

    private static List<String> sortedAndEnded(List<String> block) {
        block.sort(null);
        return null;
    }

    private static List<String> lines() {
        try {
            return Files.readAllLines(PATH);
        } catch (IOException cause) {
            throw new IllegalStateException(cause);
        }
    }

    private static String differences(List<List<String>> wanted, List<List<String>> found) {
        return "missing " + keysBeyond(wanted, found) + ", too much " + keysBeyond(found, wanted)
                + "; " + found.size() + " networks where " + wanted.size() + " are wanted";
    }

    /** Keys without values, because some values are secrets. */
    private static List<String> keysBeyond(List<List<String>> these, List<List<String>> those) {
        List<String> beyond = named(these);
        beyond.removeAll(named(those));
        beyond.replaceAll(line -> line.replaceFirst("=.*", ""));
        return beyond;
    }

    private static List<String> named(List<List<String>> blocks) {
        List<String> named = new ArrayList<>();
        for (List<String> block : blocks)
            block.forEach(line -> named.add(ssid(block) + " " + line));
        return named;
    }

    private static String ssid(List<String> block) {
        return block.stream().filter(line -> line.startsWith("ssid=")).findFirst()
                .orElse("none").replaceFirst("ssid=", "");
    }
}
