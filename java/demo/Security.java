package demo;

import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** Names the kinds of security in the client's flags, such as {@code [WPA2-PSK-CCMP][ESS]}. */
final class Security {
    static final String OPEN = "open";

    private static final Pattern FLAG = Pattern.compile("\\[([^\\]]*)\\]?");
    private static final Map<Pattern, String> WORDS = new LinkedHashMap<>();

    static {
        word("^WPA-.*\\bPSK\\b", "WPA-PSK");
        word("^WPA-.*\\bEAP\\b", "WPA-Enterprise");
        word("^(WPA2|RSN)-.*\\bPSK\\b", "WPA2-PSK");
        word("^(WPA2|RSN)-.*\\bSAE\\b", "WPA3-SAE");
        word("^(WPA2|RSN)-.*\\bEAP\\b(?!-SUITE-B)", "WPA2-Enterprise");
        word("^(WPA2|RSN)-.*\\bEAP-SUITE-B", "WPA3-Enterprise");
        word("^(WPA2|RSN)-.*\\bOWE\\b", "OWE");
        word("^WEP$", "WEP");
    }

    private Security() {}

    /** The kinds of security, joined by "/"; a kind without a name here as the client prints it. */
    static String words(String flags) {
        Set<String> words = new LinkedHashSet<>();
        Matcher flag = FLAG.matcher(flags);
        while (flag.find())
            words.addAll(wordsOf(flag.group(1)));
        return words.isEmpty() ? OPEN : String.join("/", words);
    }

    private static Set<String> wordsOf(String flag) {
        Set<String> words = new LinkedHashSet<>();
        WORDS.forEach((pattern, word) -> {
            if (pattern.matcher(flag).find())
                words.add(word);
        });
        if (words.isEmpty() && flag.matches("(WPA|RSN).*"))
            words.add(flag);
        return words;
    }

    private static void word(String flag, String word) {
        WORDS.put(Pattern.compile(flag), word);
    }
}
