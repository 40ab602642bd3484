package com.quorvel.platwifi.api;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import java.util.stream.Stream;

import javax.tools.JavaCompiler;
import javax.tools.StandardJavaFileManager;
import javax.tools.ToolProvider;

/** The examples of the documentation compile, and each public class has one. */
class ExamplesTest {
    private static final Path SOURCES = Path.of("java/com/quorvel/platwifi");
    private static final Path PAGE = Path.of("docs/java-api.md");
    private static final Path README = Path.of("README.md");
    private static final Path FIRST = Path.of("tests/lab/java/lab/api/First.java");
    private static final Pattern EXAMPLE =
            Pattern.compile("<pre>\\{@code\n(.*?)\n *\\* \\}</pre>", Pattern.DOTALL);
    private static final Pattern BLOCK = Pattern.compile("```java\n(.*?)```", Pattern.DOTALL);

    // What examples take for granted. A local variable of the same name comes first.
    private static final String FRAME = "import com.quorvel.platwifi.*;\n"
            + "import com.quorvel.platwifi.api.*;\nimport java.nio.file.Path;\n"
            + "import java.time.Duration;\nimport java.util.*;\nimport java.util.concurrent.*;\n"
            + "class %s {\n"
            + "    Wifi wifi; Network network; WifiEvent event; char[] chars;\n"
            + "    Passphrase passphrase, password, key;\n"
            + "    void askForTheKeyAgain() {}\n"
            + "    void example(%s) throws Exception {\n%s\n    }\n}\n";

    @TempDir
    Path folder;

    @Test
    void ofThePagesIsTheProgramOfTheLab() throws Exception {
        String program = Files.readString(FIRST).replaceFirst("package .*\n\n", "");
        assertEquals(program, blocksIn(PAGE).get(0));
        assertEquals(program, blocksIn(README).get(0));
    }

    @Test
    void ofEachClassAndOfThePageCompile() throws Exception {
        List<Path> files = new ArrayList<>();
        for (Path source : publicSources()) {
            List<String> examples = examplesIn(Files.readString(source));
            assertTrue(!examples.isEmpty(), source + " has no example");
            for (String example : examples)
                files.add(written(example, source));
        }
        files.add(written(blocksIn(PAGE).get(1), SOURCES.resolve("api/Wifi.java")));
        assertEquals("", errorsIn(files));
    }

    private static List<Path> publicSources() throws IOException {
        try (Stream<Path> all = Files.walk(SOURCES)) {
            return all.filter(path -> path.toString().endsWith(".java") && isPublic(path)).sorted()
                    .collect(Collectors.toList());
        }
    }

    private static boolean isPublic(Path path) {
        try {
            return Pattern.compile("^public (final )?(class|enum|interface)", Pattern.MULTILINE)
                    .matcher(Files.readString(path)).find();
        } catch (IOException e) {
            throw new IllegalStateException(e);
        }
    }

    private static List<String> examplesIn(String source) {
        return EXAMPLE.matcher(source).results()
                .map(match -> match.group(1).replaceAll("(?m)^ *\\* ?", ""))
                .collect(Collectors.toList());
    }

    private static List<String> blocksIn(Path page) throws IOException {
        Matcher block = BLOCK.matcher(Files.readString(page));
        return block.results().map(match -> match.group(1)).collect(Collectors.toList());
    }

    // The example of the cipher has a password as text.
    private Path written(String example, Path source) throws IOException {
        String name = "Example" + Files.list(folder).count();
        String parameters = source.endsWith("PlatformCrypt.java") ? "String password" : "";
        return Files.writeString(folder.resolve(name + ".java"),
                String.format(FRAME, name, parameters, example));
    }

    private String errorsIn(List<Path> files) throws IOException {
        JavaCompiler compiler = ToolProvider.getSystemJavaCompiler();
        java.io.StringWriter errors = new java.io.StringWriter();
        try (StandardJavaFileManager manager = compiler.getStandardFileManager(null, null, null)) {
            compiler.getTask(errors, manager, null, List.of("-proc:none", "-d", folder.toString(),
                    "-cp", System.getProperty("java.class.path")), null,
                    manager.getJavaFileObjectsFromPaths(files)).call();
        }
        return errors.toString();
    }
}
