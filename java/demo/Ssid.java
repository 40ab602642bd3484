package demo;

import java.io.ByteArrayOutputStream;
import java.nio.ByteBuffer;
import java.nio.CharBuffer;
import java.nio.charset.CharsetDecoder;
import java.nio.charset.CoderResult;
import java.nio.charset.StandardCharsets;
import java.util.Map;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** An SSID: up to 32 bytes, usually but not always UTF-8. */
final class Ssid {
    private static final Pattern PIECE = Pattern.compile(
            "\\\\x(?<hex>[0-9a-fA-F]{2})|\\\\(?<letter>[\\\\\"enrt])|(?<plain>.)", Pattern.DOTALL);
    private static final Map<String, Character> LETTERS = Map.of(
            "\\", '\\', "\"", '"', "e", '\u001b', "n", '\n', "r", '\r', "t", '\t');
    private static final Map<Integer, String> SHORT_ESCAPES = Map.of(
            0x1b, "\\e", (int) '\n', "\\n", (int) '\r', "\\r", (int) '\t', "\\t");
    private static final int ZERO_WIDTH_JOINER = 0x200D;

    /** In Java text, a byte NN that is part of no UTF-8 character is the lone surrogate U+DCNN. */
    private static final int LONE_BYTES = 0xDC00;

    private final byte[] bytes;

    private Ssid(byte[] bytes) {
        this.bytes = bytes;
    }

    /** Reads the client's notation, with {@code \xNN} for a byte, {@code \n} and other escapes. */
    static Ssid fromClient(String text) {
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        Matcher piece = PIECE.matcher(text);
        while (piece.find())
            bytes.writeBytes(bytesOf(piece));
        return new Ssid(bytes.toByteArray());
    }

    /** Reads a name of the library: the bytes of the SSID, or under the profile device the client's notation. */
    static Ssid fromLibrary(String name) {
        return LibraryProfile.IS_MODERN ? ofBytes(name) : fromClient(name);
    }

    /** @param text  a byte that is not UTF-8 is a lone surrogate */
    static Ssid ofBytes(String text) {
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        text.codePoints().forEach(character -> bytes.writeBytes(bytesOf(character)));
        return new Ssid(bytes.toByteArray());
    }

    /** A hidden network announces an empty SSID, or one of NUL bytes. */
    boolean isHidden() {
        for (byte one : bytes) {
            if (one != 0)
                return false;
        }
        return true;
    }

    /** The text for a terminal: characters that are not printable stay escaped. */
    @Override
    public String toString() {
        if (isHidden())
            return "(hidden)";
        StringBuilder text = new StringBuilder();
        decoded().codePoints().forEach(character -> text.append(shown(character)));
        return text.toString();
    }

    private static byte[] bytesOf(Matcher piece) {
        if (piece.group("hex") != null)
            return new byte[] {(byte) Integer.parseInt(piece.group("hex"), 16)};
        if (piece.group("letter") != null)
            return new byte[] {(byte) (char) LETTERS.get(piece.group("letter"))};
        return bytesOf(piece.group("plain").codePointAt(0));
    }

    private static byte[] bytesOf(int character) {
        return isLoneByte(character) ? new byte[] {(byte) character}
                                     : Character.toString(character).getBytes(StandardCharsets.UTF_8);
    }

    private String decoded() {
        CharsetDecoder decoder = StandardCharsets.UTF_8.newDecoder();
        ByteBuffer in = ByteBuffer.wrap(bytes);
        CharBuffer out = CharBuffer.allocate(bytes.length);
        for (CoderResult result = decoder.decode(in, out, true); result.isError();
                result = decoder.decode(in, out, true))
            out.put((char) (LONE_BYTES + (in.get() & 0xff)));
        return out.flip().toString();
    }

    private static String shown(int character) {
        if (isLoneByte(character))
            return escaped((byte) character);
        if (isPrintable(character))
            return Character.toString(character);
        return SHORT_ESCAPES.getOrDefault(character, escaped(
                Character.toString(character).getBytes(StandardCharsets.UTF_8)));
    }

    private static String escaped(byte... bytes) {
        StringBuilder text = new StringBuilder();
        for (byte one : bytes)
            text.append(String.format("\\x%02x", one));
        return text.toString();
    }

    private static boolean isLoneByte(int character) {
        return character >= LONE_BYTES + 0x80 && character <= LONE_BYTES + 0xff;
    }

    private static boolean isPrintable(int character) {
        switch (Character.getType(character)) {
        case Character.FORMAT:
            return character == ZERO_WIDTH_JOINER;
        case Character.CONTROL:
        case Character.SURROGATE:
        case Character.PRIVATE_USE:
        case Character.LINE_SEPARATOR:
        case Character.PARAGRAPH_SEPARATOR:
            return false;
        default:
            return true;
        }
    }
}
