package com.quorvel.platwifi;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;

import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.stream.Stream;

/** Calls natives by their names, for tests that run over a table. */
final class Natives {
    /** A line of the list of networks. */
    static final String HOME = "0\thome\tany\t";

    private Natives() {}

    static Stream<Method> all() {
        return Stream.of(BWifiPlatformService.class.getDeclaredMethods())
                .filter(method -> Modifier.isNative(method.getModifiers()));
    }

    static Method named(String name) {
        return all().filter(method -> method.getName().equals(name)).findFirst().orElseThrow();
    }

    static Object call(Method method, Object... arguments) {
        try {
            return method.invoke(null, arguments);
        } catch (InvocationTargetException e) {
            if (e.getCause() instanceof Error)
                throw (Error) e.getCause();
            throw (RuntimeException) e.getCause();
        } catch (IllegalAccessException e) {
            throw new AssertionError(e);
        }
    }

    /** Calls a native for the network "home". */
    static Object ofHome(String name, Object... values) {
        return call(named(name), Stream.concat(Stream.of("wlan0", "home"), Stream.of(values))
                .toArray());
    }

    static boolean set(String name, Object... values) {
        return (boolean) ofHome(name, values);
    }

    /** Loads these networks with this script; after that the client answers every command with OK. */
    static void load(StandIn script, String... networks) {
        BWifiPlatformService.unloadWifiSettings0();
        script.settings(networks).play();
        assertArrayEquals(new String[] {"wlan0"}, BWifiPlatformService.getWifiAdapters0());
        new StandIn().when("*").print("OK\n").play();
    }

    static void loadHome() {
        load(new StandIn(), HOME);
    }
}
