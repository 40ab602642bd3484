package com.quorvel.platwifi.api;

import java.util.Locale;
import java.util.function.Function;

/** The words of the native half for the constants of an enumeration. */
final class Words {
    private Words() {}

    /** The name in small letters, with a capital letter in place of each underscore: WRONG_KEY is wrongKey. */
    static String wordOf(Enum<?> constant) {
        StringBuilder word = new StringBuilder();
        for (String part : constant.name().split("_"))
            word.append(word.length() == 0 ? part.toLowerCase(Locale.ROOT) : capitalized(part));
        return word.toString();
    }

    /** The constant of a word, or {@code otherwise}. */
    static <T extends Enum<T>> T constantOf(T[] constants, String word, T otherwise) {
        return constantWith(constants, Words::wordOf, word, otherwise);
    }

    /** The constant that prints as this text, or {@code otherwise}. */
    static <T extends Enum<T>> T printedAs(T[] constants, String text, T otherwise) {
        return constantWith(constants, Enum::toString, text, otherwise);
    }

    /** The first constant that has this word by {@code wordOf}, or {@code otherwise}. */
    static <T extends Enum<T>> T constantWith(T[] constants, Function<T, String> wordOf, String word,
            T otherwise) {
        for (T constant : constants) {
            if (wordOf.apply(constant).equals(word))
                return constant;
        }
        return otherwise;
    }

    private static String capitalized(String part) {
        return part.charAt(0) + part.substring(1).toLowerCase(Locale.ROOT);
    }
}
