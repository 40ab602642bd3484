package demo;

import java.io.ByteArrayOutputStream;
import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.StandardCharsets;

/** The key of a network in plain text. It has no toString(), so that no message can contain it. */
final class Key {
    private static final String STANDARD_INPUT = "-";
    private static final int SHORTEST = 8;
    private static final int LONGEST = 63;
    private static final String RAW = "[0-9a-fA-F]{64}";

    private final String plain;

    private Key(String plain) {
        this.plain = plain;
    }

    /**
     * Reads the first line of a file. A key is no argument of the program, because every user can
     * see the arguments of a process.
     *
     * @param file  "-" for standard input
     */
    static Key read(String file, InputStream standardInput) throws Stop {
        try {
            return new Key(checked(file, text(firstLine(file, standardInput))));
        } catch (CharacterCodingException e) {
            throw wrong(file, "is not UTF-8");
        } catch (IOException e) {
            throw new Stop("the key cannot be read: %s; name a readable file whose first line is"
                    + " the key", e.getMessage());
        }
    }

    /** For the cipher only. */
    String plain() {
        return plain;
    }

    private static byte[] firstLine(String file, InputStream standardInput) throws IOException {
        if (file.equals(STANDARD_INPUT))
            return firstLine(standardInput);
        try (InputStream in = new FileInputStream(file)) {
            return firstLine(in);
        }
    }

    /** Reads at most 128 bytes, which is too long for a key: a file may have no end. */
    private static byte[] firstLine(InputStream in) throws IOException {
        ByteArrayOutputStream line = new ByteArrayOutputStream();
        for (int one = in.read(); one >= 0 && one != '\n' && line.size() < 128; one = in.read())
            line.write(one);
        return line.toByteArray();
    }

    private static String text(byte[] line) throws CharacterCodingException {
        String text = StandardCharsets.UTF_8.newDecoder().decode(ByteBuffer.wrap(line)).toString();
        return text.endsWith("\r") ? text.substring(0, text.length() - 1) : text;
    }

    private static String checked(String file, String text) throws Stop {
        int length = text.getBytes(StandardCharsets.UTF_8).length;
        if (text.isEmpty())
            throw wrong(file, "is empty");
        if (text.chars().anyMatch(Character::isISOControl))
            throw wrong(file, "holds control characters");
        if ((length < SHORTEST || length > LONGEST) && !text.matches(RAW))
            throw wrong(file, "is too short or too long");
        return text;
    }

    private static Stop wrong(String file, String cause) {
        return new Stop("the first line of %s %s; write the key there: %d to %d characters or 64"
                + " hexadecimal digits", file.equals(STANDARD_INPUT) ? "standard input" : file,
                cause, SHORTEST, LONGEST);
    }
}
