package com.quorvel.platwifi.api;

import java.nio.file.Path;
import java.util.Arrays;
import java.util.Collections;
import java.util.EnumSet;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Objects;
import java.util.Optional;
import java.util.OptionalInt;
import java.util.Set;
import java.util.TreeMap;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * A configured network, or one that is to be configured. {@link #edit} gives a builder for a changed copy, which
 * {@link Wifi#save} saves; {@link #builder(String)} gives one for a new network.
 *
 * <pre>{@code
 * Network cafe = Network.builder("cafe").keyManagement(KeyManagement.NONE).build();
 * wifi.add(cafe);
 * Network home = wifi.network("home").get();
 * wifi.save(home.edit().priority(5).build());
 * }</pre>
 *
 * <p>Immutable, for any thread.
 */
public final class Network {
    /**
     * What a network is to the supplicant.
     *
     * <pre>{@code
     * boolean isInUse = network.status() == Network.Status.CONNECTED;
     * }</pre>
     */
    public enum Status {
        /** The supplicant may choose it. */
        ENABLED,
        /** It is the network of the connection. */
        CONNECTED,
        /** The supplicant connects to it. */
        CONNECTING,
        /** The supplicant does not choose it. */
        DISABLED,
        /** It is not configured yet, or the supplicant has not said. */
        UNKNOWN
    }

    private static final String ANY = "any";

    private final Ssid ssid;
    private final Map<String, String> values; // of all properties, with the changes
    private final Map<String, String> changes;
    private final Map<String, Passphrase> secrets;

    private Network(Ssid ssid, Map<String, String> values, Map<String, String> changes,
            Map<String, Passphrase> secrets) {
        this.ssid = ssid;
        this.values = values;
        this.changes = changes;
        this.secrets = secrets;
    }

    static Network of(Members members) {
        return new Network(Ssid.ofHex(members.text("ssid")), members.all(), Map.of(), Map.of());
    }

    Map<String, String> changes() {
        return changes;
    }

    Map<String, Passphrase> secrets() {
        return secrets;
    }

    /**
     * Begins a network that is not configured yet.
     *
     * @param ssid  its name
     * @return a builder for it
     * @throws WifiException  if the name has no byte, or more than 32
     */
    public static Builder builder(String ssid) {
        return builder(Ssid.of(ssid));
    }

    /**
     * Begins a network that is not configured yet.
     *
     * @param ssid  its name
     * @return a builder for it
     * @throws WifiException  if the name is hidden, which is none
     */
    public static Builder builder(Ssid ssid) {
        if (ssid.isHidden())
            throw WifiException.wrongUse("a network needs a name of 1 to 32 bytes; give its SSID");
        return new Builder(ssid, Map.of());
    }

    /**
     * Begins a changed copy.
     *
     * @return a builder with the values of this network
     */
    public Builder edit() {
        Builder builder = new Builder(ssid, values);
        builder.changes.putAll(changes);
        builder.secrets.putAll(secrets);
        return builder;
    }

    /**
     * Its name.
     *
     * @return its bytes and text
     */
    public Ssid ssid() {
        return ssid;
    }

    /**
     * What it was to the supplicant when it was read.
     *
     * @return {@link Status#UNKNOWN} for a network from a builder
     */
    public Status status() {
        return Words.constantOf(Status.values(), text("status"), Status.UNKNOWN);
    }

    /**
     * Whether its access points hide their name.
     *
     * @return false if they send it
     */
    public boolean hidden() {
        return text("ssidBroadcasted").equals("false");
    }

    /**
     * Its priority: the supplicant prefers higher ones.
     *
     * @return 0 or more
     */
    public int priority() {
        String priority = text("priority");
        return priority.isEmpty() ? 0 : Integer.parseInt(priority);
    }

    /**
     * The one access point to use.
     *
     * @return its address; empty for any
     */
    public Optional<String> bssid() {
        return property("bssid").filter(bssid -> !bssid.equals(ANY));
    }

    /**
     * How it gets its keys.
     *
     * @return an unmodifiable set; empty for what the supplicant does without a value
     */
    public Set<KeyManagement> keyManagement() {
        Set<KeyManagement> set = EnumSet.noneOf(KeyManagement.class);
        for (KeyManagement one : KeyManagement.values()) {
            if (words("key_mgmt").contains(one.toString()))
                set.add(one);
        }
        return Collections.unmodifiableSet(set);
    }

    /**
     * Whether it protects management frames.
     *
     * @return {@link FrameProtection#DEFAULT} without a value
     */
    public FrameProtection frameProtection() {
        return Words.printedAs(FrameProtection.values(), text("pmf"), FrameProtection.DEFAULT);
    }

    /**
     * Whether a passphrase, or a key, is set.
     *
     * @return never the secret itself
     */
    public boolean hasPassphrase() {
        return hasSecret("psk");
    }

    /**
     * Whether a password for the login is set.
     *
     * @return never the secret itself
     */
    public boolean hasPassword() {
        return hasSecret("eapPassword");
    }

    /**
     * The EAP methods for the login.
     *
     * @return in the supplicant's words, such as PEAP
     */
    public Set<String> eap() {
        return words("eap");
    }

    /**
     * The identity for the login.
     *
     * @return empty if none is set
     */
    public Optional<String> identity() {
        return property("eapIdentity");
    }

    /**
     * The strength of its signal at the last scan.
     *
     * @return in percent; empty for a network from a builder
     */
    public OptionalInt strength() {
        return property("strength").map(Integer::parseInt).map(OptionalInt::of)
                .orElseGet(OptionalInt::empty);
    }

    /**
     * Any property, by its name on the command line: {@code platwifi set --help} lists them.
     *
     * @param name  such as {@code phase2}
     * @return its value as {@code platwifi show} shows it; empty if it is not set; {@code (set)} for a secret
     */
    public Optional<String> property(String name) {
        return Optional.ofNullable(values.get(Objects.requireNonNull(name))).filter(text -> !text.isEmpty());
    }

    /** The name, the key management and the status. */
    @Override
    public String toString() {
        return ssid + " " + keyManagement() + " " + status();
    }

    private String text(String name) {
        return values.getOrDefault(name, "");
    }

    private Set<String> words(String name) {
        return Stream.of(text(name).split(" ")).filter(word -> !word.isEmpty())
                .collect(Collectors.toCollection(LinkedHashSet::new));
    }

    private boolean hasSecret(String name) {
        return secrets.containsKey(name) || !text(name).isEmpty();
    }

    /**
     * Builds a network. Each method returns the builder. Values are checked when the network is saved.
     *
     * <pre>{@code
     * Network work = Network.builder("work")
     *         .eap("PEAP").identity("me").password(password)
     *         .caCertificate(Path.of("/etc/ssl/work.pem"))
     *         .property("phase2", "auth=MSCHAPV2")
     *         .build();
     * }</pre>
     *
     * <p>For one thread at a time.
     */
    public static final class Builder {
        private final Ssid ssid;
        private final Map<String, String> values;
        private final Map<String, String> changes = new LinkedHashMap<>();
        private final Map<String, Passphrase> secrets = new TreeMap<>();

        private Builder(Ssid ssid, Map<String, String> values) {
            this.ssid = ssid;
            this.values = new TreeMap<>(values);
        }

        /**
         * Sets the passphrase of WPA and WPA2, or the password of WPA3. A new network without a key management gets
         * WPA-PSK by it.
         *
         * @param passphrase  8 to 63 characters, or 64 hexadecimal digits; any length for SAE alone. Closed when the
         *     network is saved, or could not be
         * @return this
         */
        public Builder passphrase(Passphrase passphrase) {
            return secret("psk", passphrase);
        }

        /**
         * Sets the key of WEP, which protects nothing; for the sake of old access points.
         *
         * @param key  5 or 13 characters, or 10 or 26 hexadecimal digits. Closed when the network is saved, or could not be
         * @return this
         */
        public Builder wepKey(Passphrase key) {
            return secret("key1", key);
        }

        /**
         * Sets how the network gets its keys.
         *
         * @param kinds  one or several
         * @return this
         */
        public Builder keyManagement(KeyManagement... kinds) {
            return property("key_mgmt", joined(kinds));
        }

        /**
         * Sets whether management frames are protected.
         *
         * @param protection  {@link FrameProtection#REQUIRED} with SAE and OWE
         * @return this
         */
        public Builder frameProtection(FrameProtection protection) {
            return property("pmf", protection.toString());
        }

        /**
         * Sets whether the access points hide their name: scans then ask for it.
         *
         * @param isHidden  true if they do
         * @return this
         */
        public Builder hidden(boolean isHidden) {
            return property("ssidBroadcasted", Boolean.toString(!isHidden));
        }

        /**
         * Sets the priority.
         *
         * @param priority  0 or more; the supplicant prefers higher ones
         * @return this
         */
        public Builder priority(int priority) {
            return property("priority", Integer.toString(priority));
        }

        /**
         * Sets the one access point to use.
         *
         * @param bssid  its address; null for any
         * @return this
         */
        public Builder bssid(String bssid) {
            return property("bssid", bssid == null ? ANY : bssid);
        }

        /**
         * Sets the EAP methods for a login on a server. A new network without a key management gets WPA-EAP by it.
         *
         * @param methods  in the supplicant's words, such as PEAP
         * @return this
         */
        public Builder eap(String... methods) {
            return property("eap", joined(methods));
        }

        /**
         * Sets the identity for the login.
         *
         * @param identity  "" clears it
         * @return this
         */
        public Builder identity(String identity) {
            return property("eapIdentity", identity);
        }

        /**
         * Sets the password for the login.
         *
         * @param password  closed when the network is saved, or could not be
         * @return this
         */
        public Builder password(Passphrase password) {
            return secret("eapPassword", password);
        }

        /**
         * Sets the certificate of the authority that the certificate of the server has to be from.
         *
         * @param file  exists
         * @return this
         */
        public Builder caCertificate(Path file) {
            return property("CACertificateFile", file.toAbsolutePath().toString());
        }

        /**
         * Sets the certificate of this device, and its private key.
         *
         * @param certificate  exists
         * @param key  exists
         * @param password  of the key; null for none. Closed when the network is saved, or could not be
         * @return this
         */
        public Builder clientCertificate(Path certificate, Path key, Passphrase password) {
            property("clientCertificate", certificate.toAbsolutePath().toString());
            property("privateKeyFile", key.toAbsolutePath().toString());
            return password == null ? this : secret("privateKeyPassword", password);
        }

        /**
         * Sets any property that is no secret, by its name on the command line: {@code platwifi set --help} lists them,
         * and their values.
         *
         * @param name  such as {@code phase2}
         * @param value  such as {@code auth=MSCHAPV2}
         * @return this
         */
        public Builder property(String name, String value) {
            changes.put(Objects.requireNonNull(name), Objects.requireNonNull(value));
            values.put(name, value);
            return this;
        }

        /**
         * Builds the network.
         *
         * @return with the values so far
         */
        public Network build() {
            return new Network(ssid, Map.copyOf(values),
                    Collections.unmodifiableMap(new LinkedHashMap<>(changes)),
                    Collections.unmodifiableMap(new TreeMap<>(secrets)));
        }

        private Builder secret(String name, Passphrase secret) {
            secrets.put(name, Objects.requireNonNull(secret));
            return this;
        }

        private static String joined(Object[] words) {
            return Arrays.stream(words).map(Object::toString).collect(Collectors.joining(" "));
        }
    }
}
