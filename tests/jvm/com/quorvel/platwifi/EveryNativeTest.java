package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

import java.lang.reflect.Method;
import java.util.Arrays;
import java.util.HashMap;
import java.util.Map;
import java.util.stream.Stream;

/** What each native returns without a network or an adapter: no exception and no crash. */
class EveryNativeTest {
    private static final String UNBOUND = "setSsid0";
    private static final String[] NO_KEYS = {"", "", "", ""};
    private static final String[] NOTHING = {};

    /** The result of a failure, by the type of the result. */
    private static final Map<Class<?>, Object> FAILURE = new HashMap<>();
    /** The results of the natives that do not fail for an unknown network. */
    private static final Map<String, Object> OF_NO_NETWORK = Map.of(
            "setWepKey0", true, "setWepIndex0", true,
            "removeNetwork0", true, "disconnectFromNetwork0", true, "getWepKeys0", NO_KEYS);
    /** The results of the natives that do not fail without an adapter. */
    private static final Map<String, Object> OF_NO_ADAPTER = new HashMap<>(OF_NO_NETWORK);

    static {
        FAILURE.put(boolean.class, false);
        FAILURE.put(int.class, 0);
        FAILURE.put(String.class, null);
        FAILURE.put(String[].class, null);
        OF_NO_ADAPTER.putAll(Map.of("unloadWifiSettings0", true, "hashCACertificates0", true,
                "saveHostSettings0", true, "getWifiAdapters0", NOTHING,
                "getNetworkDatabaseSsids0", NOTHING));
    }

    static Stream<Method> bound() {
        return Natives.all().filter(method -> !method.getName().equals(UNBOUND));
    }

    static Stream<Method> boundOfOneNetwork() {
        return boundWithTexts().filter(method -> method.getParameterCount() > 1);
    }

    static Stream<Method> boundWithTexts() {
        return bound().filter(method -> method.getParameterCount() > 0);
    }

    @AfterEach
    void unload() {
        BWifiPlatformService.unloadWifiSettings0();
    }

    @Test
    void thereAre74() {
        assertEquals(74, Natives.all().count());
    }

    @ParameterizedTest
    @MethodSource("boundOfOneNetwork")
    void ofAnUnknownNetwork(Method method) {
        load();
        for (String ssid : new String[] {"unknown", "", "Home", "网络", "😀", "caf\uDCE9", "\uD800"})
            assertGives(expected(method, OF_NO_NETWORK), method, "wlan0", ssid, "in plain");
    }

    @ParameterizedTest
    @MethodSource("bound")
    void withoutAnAdapter(Method method) {
        BWifiPlatformService.unloadWifiSettings0();
        new StandIn().when("*").exit(255).play();
        assertGives(expected(method, OF_NO_ADAPTER), method, "wlan0", "home", "in plain");
    }

    @ParameterizedTest
    @MethodSource("boundWithTexts")
    void withNullForEveryText(Method method) {
        load();
        Map<String, Object> expected = new HashMap<>(OF_NO_NETWORK);
        expected.put("getNetworkDatabaseSsids0", new String[] {"home"});
        assertGives(expected(method, expected), method, null, null, null);
    }

    /** The library exports it under a C++ name, which Java does not look for. */
    // API-2
    @Test
    void setSsidIsNotBound() {
        load();
        assertThrows(UnsatisfiedLinkError.class, () -> Natives.set(UNBOUND, "villa"));
    }

    /** Loads the settings; the client refuses every command after that. */
    private static void load() {
        Natives.loadHome();
        new StandIn().when("*").print("FAIL\n").exit(1).play();
    }

    private static Object expected(Method method, Map<String, Object> exceptions) {
        String name = method.getName();
        return exceptions.containsKey(name) ? exceptions.get(name)
                : FAILURE.get(method.getReturnType());
    }

    /** @param texts  the arguments for the parameters that are texts; a number is 1, a boolean true */
    private static void assertGives(Object expected, Method method, String... texts) {
        Class<?>[] types = method.getParameterTypes();
        Object[] arguments = new Object[types.length];
        for (int i = 0; i < types.length; ++i)
            arguments[i] = types[i] == String.class ? texts[Math.min(i, texts.length - 1)]
                    : types[i] == int.class ? (Object) 1 : true;
        Object result = Natives.call(method, arguments);
        String message = method.getName() + Arrays.toString(arguments);
        if (expected instanceof String[])
            assertArrayEquals((String[]) expected, (String[]) result, message);
        else
            assertEquals(expected, result, message);
    }
}
