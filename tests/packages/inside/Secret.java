import com.quorvel.platwifi.PlatformCrypt;

/** Enciphers or deciphers a text: {@code encrypt TEXT} or {@code decrypt TEXT}. */
public class Secret {
    public static void main(String[] arguments) {
        boolean encrypts = arguments[0].equals("encrypt");
        System.out.println(encrypts ? PlatformCrypt.encrypt(arguments[1])
                : PlatformCrypt.decrypt(arguments[1]));
    }
}
