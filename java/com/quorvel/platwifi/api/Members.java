package com.quorvel.platwifi.api;

import java.util.HashMap;
import java.util.Map;
import java.util.Optional;
import java.util.OptionalInt;

/** The members of a record of the native half: names and values in turn. */
final class Members {
    private final Map<String, String> values = new HashMap<>();

    Members(String[] record) {
        for (int i = 0; i + 1 < record.length; i += 2)
            values.put(record[i], record[i + 1]);
    }

    Map<String, String> all() {
        return Map.copyOf(values);
    }

    String text(String name) {
        return values.getOrDefault(name, "");
    }

    Optional<String> optional(String name) {
        return Optional.ofNullable(values.get(name)).filter(text -> !text.isEmpty());
    }

    OptionalInt number(String name) {
        String text = values.get(name);
        return text == null ? OptionalInt.empty() : OptionalInt.of(Integer.parseInt(text));
    }

    boolean is(String name) {
        return "true".equals(values.get(name));
    }

    Optional<Ssid> ssid(String name) {
        return optional(name).map(Ssid::ofHex);
    }
}
