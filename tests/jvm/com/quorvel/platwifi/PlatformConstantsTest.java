package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;

import java.lang.reflect.Field;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Locale;
import java.util.Map;
import java.util.TreeMap;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** Each number that the documentation of the old class lists has a name, and there are no others. */
class PlatformConstantsTest {
    private static final Path SOURCE =
            Path.of("java/com/quorvel/platwifi/BWifiPlatformService.java");
    private static final Pattern ROW = Pattern.compile("<tr><td>([^<]+)</td><td>([^<]+)</td></tr>");
    private static final Pattern ENTRY =
            Pattern.compile("(?:^|, )([A-Za-z0-9_ -]+?)(?: \\([^)]*\\))? (0x[0-9a-f]+|[0-9]+)(?=,|$)");
    private static final Pattern MODERN = Pattern.compile(
            "key management (SAE .*?); ciphers of both kinds (GCMP .*?)\\.");
    private static final Map<String, String> PREFIXES = Map.of(
            "Protocol", "PROTOCOL", "Key management", "KEY_MANAGEMENT", "Pairwise cipher", "PAIRWISE",
            "Group cipher", "GROUP", "EAP method", "EAP",
            "Authentication algorithm", "AUTHENTICATION", "Network mode", "MODE",
            "Network status", "STATUS", "Supplicant state", "STATE");

    @Test
    void haveTheNumbersOfTheDocumentation() throws Exception {
        assertEquals(documented(), constants());
    }

    private static Map<String, Integer> documented() throws Exception {
        String text = Files.readString(SOURCE).replaceAll("\\s*\n \\*\\s*", " ");
        Map<String, Integer> numbers = new TreeMap<>();
        Matcher row = ROW.matcher(text);
        while (row.find())
            add(numbers, PREFIXES.get(row.group(1)), row.group(2));
        Matcher modern = MODERN.matcher(text);
        assertEquals(true, modern.find());
        add(numbers, "KEY_MANAGEMENT", modern.group(1));
        add(numbers, "PAIRWISE", modern.group(2));
        add(numbers, "GROUP", modern.group(2));
        return numbers;
    }

    private static void add(Map<String, Integer> numbers, String prefix, String list) {
        Matcher entry = ENTRY.matcher(list);
        while (entry.find())
            numbers.put(prefix + "_" + nameOf(entry.group(1)), Integer.decode(entry.group(2)));
    }

    private static String nameOf(String word) {
        return word.replace("4-way", "four-way").replaceAll("[^A-Za-z0-9]", "_")
                .toUpperCase(Locale.ROOT);
    }

    private static Map<String, Integer> constants() throws Exception {
        Map<String, Integer> numbers = new TreeMap<>();
        for (Field field : PlatformConstants.class.getFields())
            numbers.put(field.getName(), field.getInt(null));
        return numbers;
    }
}
