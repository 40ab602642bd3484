package com.quorvel.platwifi;

import java.io.IOException;
import java.io.InputStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Runs a program with nothing but the jar with native files on its class path, in an environment
 * that is empty; its home and its temporary folder are below the folder of the test.
 */
final class OneJar {
    static final Path JAR = Path.of(System.getProperty("platwifi.jar"));

    private final Path folder;
    private Path jar = JAR;

    OneJar(Path folder) throws IOException {
        this.folder = folder;
        Files.createDirectory(home());
        Files.createDirectory(temporary());
        copy(OneJarProbe.class);
        copy(OneJarApiProbe.class);
        copy(UnpackingProbe.class);
    }

    private void copy(Class<?> program) throws IOException {
        String name = program.getName().replace('.', '/') + ".class";
        Path file = folder.resolve("probe").resolve(name);
        Files.createDirectories(file.getParent());
        try (InputStream content = program.getResourceAsStream("/" + name)) {
            Files.copy(content, file);
        }
    }

    OneJar with(ChangedJar changed) throws IOException {
        jar = changed.writeTo(folder.resolve("changed.jar"));
        return this;
    }

    Path home() {
        return folder.resolve("home");
    }

    Path temporary() {
        return folder.resolve("temporary");
    }

    /** The cache in {@link #home}. */
    Path cache() {
        return home().resolve(".cache/platwifi");
    }

    Process start(Map<String, String> environment, String... options) throws IOException {
        return start(OneJarProbe.class, environment, options);
    }

    Process start(Class<?> program, Map<String, String> environment, String... options)
            throws IOException {
        List<String> arguments = new ArrayList<>(List.of("-cp", jar + ":" + folder.resolve("probe"),
                "-Duser.home=" + home(), "-Djava.io.tmpdir=" + temporary()));
        arguments.addAll(Arrays.asList(options));
        arguments.add(program.getName());
        ProcessBuilder command = JavaProgram.command(folder, arguments);
        command.environment().clear();
        command.environment().putAll(environment);
        return command.start();
    }

    /** What it prints: the files of its two libraries, or why it has none. */
    String run(Map<String, String> environment, String... options)
            throws IOException, InterruptedException {
        return JavaProgram.output(start(environment, options));
    }

    String run(String... options) throws IOException, InterruptedException {
        return run(Map.of(), options);
    }

    /** The only folder with unpacked files in a cache. */
    static Path unpackedIn(Path cache) throws IOException {
        List<Path> folders = children(cache);
        if (folders.size() != 1)
            throw new AssertionError(cache + " has " + folders);
        return folders.get(0);
    }

    static List<Path> children(Path folder) throws IOException {
        try (Stream<Path> children = Files.list(folder)) {
            return children.collect(Collectors.toList());
        }
    }

    /** What {@link #run} prints when the libraries are those that are unpacked in this cache. */
    static String loadedFrom(Path cache) throws IOException {
        return loadedFrom(cache, "libplatwificrypt.so");
    }

    /** The lines with the library and a private library that are unpacked in this cache. */
    static String loadedFrom(Path cache, String privateLibrary) throws IOException {
        Path libraries = unpackedIn(cache).resolve("lib");
        return libraries.resolve("libplatwifi.so.1").toRealPath() + "\n"
                + libraries.resolve("platwifi").resolve(privateLibrary).toRealPath() + "\n";
    }
}
