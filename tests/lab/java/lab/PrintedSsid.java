package lab;

import java.io.ByteArrayOutputStream;
import java.nio.ByteBuffer;
import java.nio.CharBuffer;
import java.nio.charset.CharsetDecoder;
import java.nio.charset.CoderResult;
import java.nio.charset.StandardCharsets;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** An SSID in the three notations of the lab: the client's, Java's and that of the configuration file. */
final class PrintedSsid {
    private static final Pattern PIECE = Pattern.compile("\\\\x(..)|\\\\?(.)");
    private static final int LONE_BYTES = 0xDC00;

    /** As the client prints it, with escapes. */
    final String printed;

    private final byte[] bytes;

    PrintedSsid(String printed) {
        this.printed = printed;
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        Matcher piece = PIECE.matcher(printed);
        while (piece.find())
            out.write(piece.group(1) != null ? Integer.parseInt(piece.group(1), 16)
                                             : piece.group(2).charAt(0));
        bytes = out.toByteArray();
    }

    /** As a Java program has it: a byte NN that is not UTF-8 is the lone surrogate U+DCNN. */
    String text() {
        CharsetDecoder decoder = StandardCharsets.UTF_8.newDecoder();
        ByteBuffer in = ByteBuffer.wrap(bytes);
        CharBuffer out = CharBuffer.allocate(bytes.length);
        for (CoderResult result = decoder.decode(in, out, true); result.isError();
                result = decoder.decode(in, out, true))
            out.put((char) (LONE_BYTES + (in.get() & 0xff)));
        return out.flip().toString();
    }

    /** As the supplicant writes it: in quotes, or in hexadecimal where it is not plain ASCII. */
    String inFile() {
        StringBuilder hex = new StringBuilder();
        boolean isPlain = true;
        for (byte one : bytes) {
            hex.append(String.format("%02x", one));
            isPlain &= one >= ' ' && one <= '~';
        }
        return isPlain ? Network.quoted(text()) : hex.toString();
    }

    @Override
    public String toString() {
        return printed;
    }
}
