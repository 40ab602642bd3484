package com.quorvel.platwifi.api;

import java.time.Duration;
import java.util.ArrayList;
import java.util.List;
import java.util.Objects;
import java.util.Optional;
import java.util.function.Consumer;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * The Wi-Fi of an adapter.
 *
 * <pre>{@code
 * try (Wifi wifi = Wifi.open("wlan0")) {
 *     for (AccessPoint ap : wifi.scan())
 *         System.out.println(ap.ssid() + " " + ap.signal() + " dBm " + ap.security());
 *     Connection link = wifi.join("home", Passphrase.of(chars)).get(30, TimeUnit.SECONDS);
 * } catch (WifiException e) {
 *     System.err.println(e.reason() + ": " + e.getMessage());
 * }
 * }</pre>
 *
 * <p>All work is done by the wpa_supplicant of the host, which has to run. The process uses the profile {@code modern},
 * whatever {@code PLATWIFI_PROFILE} says; {@link #open} fails where it uses the profile {@code device} already.
 *
 * <p>Any number of threads may use an object, and a process any number of objects, also for the same adapter. Operations
 * that change networks ({@link #join}, {@link #connect}, {@link #edit} and what is made of it) take turns in a process.
 * Operations that take seconds are a {@link WifiFuture}, which can be cancelled; of the others, only {@link #scan} takes
 * longer than a few commands of the supplicant's client, and {@link #edit} waits for its turn, 10 seconds at most.
 */
public final class Wifi implements AutoCloseable {
    /** Shorter than callers usually wait, so that they get the cause. */
    private static final Duration DEFAULT_TIMEOUT = Duration.ofSeconds(25);

    private final String adapter;
    private final Operations operations;
    private final Listeners listeners;

    private Wifi(String adapter) {
        this.adapter = adapter;
        operations = new Operations(adapter);
        listeners = new Listeners(adapter);
    }

    /**
     * Opens the first adapter that the supplicant serves.
     *
     * @return to be closed
     * @throws WifiException  if there is none, if no supplicant can be reached, if the native libraries are missing, or
     *     if this process uses the profile {@code device} already
     */
    public static Wifi open() {
        return opened("");
    }

    /**
     * Opens an adapter. Networks are configured on the first one that the supplicant serves only.
     *
     * @param adapter  such as {@code wlan0}
     * @return to be closed
     * @throws WifiException  if the supplicant does not serve it, and as {@link #open()} does
     */
    public static Wifi open(String adapter) {
        if (adapter.isEmpty())
            throw WifiException.wrongUse("an adapter has a name, such as wlan0; Wifi.open() takes the"
                    + " first one");
        return opened(adapter);
    }

    private static Wifi opened(String adapter) {
        Natives.load();
        try (Cancellation none = new Cancellation()) {
            return new Wifi(Natives.interface0(none.handle(), adapter));
        }
    }

    /**
     * The name of this adapter.
     *
     * @return such as {@code wlan0}
     */
    public String adapter() {
        return adapter;
    }

    /**
     * All adapters that the supplicant serves.
     *
     * @return their names, the first one first
     * @throws WifiException  if the supplicant cannot be reached
     */
    public List<String> adapters() {
        return operations.call(cancellation -> List.of(Natives.adapters0(cancellation.handle())));
    }

    /**
     * Scans. Takes one to a few seconds, at most 80 seconds where the radio is busy; {@link #startScan} does not
     * block.
     *
     * @return the access points in range, strongest first
     * @throws WifiException  if the adapter cannot scan
     */
    public List<AccessPoint> scan() {
        return operations.call(this::scanned);
    }

    /**
     * Scans on a thread of the library.
     *
     * @return the access points in range, strongest first
     */
    public WifiFuture<List<AccessPoint>> startScan() {
        return operations.start("scan", this::scanned);
    }

    private List<AccessPoint> scanned(Cancellation cancellation) {
        return Stream.of(Natives.scan0(cancellation.handle(), adapter)).map(Members::new)
                .map(AccessPoint::new).collect(Collectors.toUnmodifiableList());
    }

    /**
     * The configured networks.
     *
     * @return the one that was added last first
     * @throws WifiException  if they cannot be read
     */
    public List<Network> networks() {
        return operations.call(cancellation -> Stream
                .of(Natives.networks0(cancellation.handle(), adapter)).map(Members::new)
                .map(Network::of).collect(Collectors.toUnmodifiableList()));
    }

    /**
     * A configured network.
     *
     * @param ssid  its name
     * @return empty if there is none of this name
     * @throws WifiException  if they cannot be read
     */
    public Optional<Network> network(String ssid) {
        return network(Ssid.of(ssid));
    }

    /**
     * A configured network.
     *
     * @param ssid  its name
     * @return empty if there is none of this name
     * @throws WifiException  if they cannot be read
     */
    public Optional<Network> network(Ssid ssid) {
        Objects.requireNonNull(ssid);
        return networks().stream().filter(network -> network.ssid().equals(ssid)).findFirst();
    }

    /**
     * Adds a network and saves it, without connecting to it.
     *
     * @param network  from {@link Network#builder}
     * @throws WifiException  as {@link #edit} does
     */
    public void add(Network network) {
        edit(edit -> edit.add(network));
    }

    /**
     * Saves a changed network.
     *
     * @param network  from {@link Network#edit}
     * @throws WifiException  as {@link #edit} does
     */
    public void save(Network network) {
        edit(edit -> edit.save(network));
    }

    /**
     * Removes a network for good. A connection to it ends.
     *
     * @param ssid  its name
     * @throws WifiException  as {@link #edit} does
     */
    public void remove(String ssid) {
        remove(Ssid.of(ssid));
    }

    /**
     * Removes a network for good. A connection to it ends.
     *
     * @param ssid  its name
     * @throws WifiException  as {@link #edit} does
     */
    public void remove(Ssid ssid) {
        edit(edit -> edit.remove(ssid));
    }

    /**
     * Makes several changes, and saves all or none of them.
     *
     * <pre>{@code
     * wifi.edit(edit -> {
     *     edit.add(Network.builder("cafe").keyManagement(KeyManagement.NONE).build());
     *     edit.save(wifi.network("home").get().edit().priority(5).build());
     *     edit.remove("old");
     * });
     * }</pre>
     *
     * <p>The block only notes the changes; they are made after it, in its order. If the block throws, nothing is sent. If
     * the supplicant refuses one, it reads its configuration file again, and nothing of the block stays, in the supplicant
     * or in memory; a connection may be made anew then. Changes by {@code BWifiPlatformService} that were not saved are
     * saved with the block, or discarded with it. All passphrases of the block are closed afterwards.
     *
     * @param block  gets the list of changes
     * @throws WifiException  if a value is wrong, if a network to add exists or one to change does not, if the supplicant
     *     refuses a change or cannot save its file, or if another operation changes networks for longer than 10 s
     */
    public void edit(Consumer<Edit> block) {
        Edit edit = new Edit();
        try {
            operations.requireOpen();
            block.accept(edit);
            if (edit.steps.isEmpty())
                return;
            operations.change(cancellation -> {
                Natives.edit0(cancellation.handle(), adapter, edit.steps.toArray(new String[0][]),
                        edit.secrets.all());
                return null;
            });
        } finally {
            edit.secrets.close();
        }
    }

    /**
     * Joins a network that needs no passphrase: an open one, one with OWE, or one that is configured.
     *
     * @param ssid  its name
     * @return as {@link #join(Network, Duration)} does
     */
    public WifiFuture<Connection> join(String ssid) {
        return join(Network.builder(ssid).build(), DEFAULT_TIMEOUT);
    }

    /**
     * Joins a network with a passphrase.
     *
     * @param ssid  its name
     * @param passphrase  closed when the operation ends
     * @return as {@link #join(Network, Duration)} does
     */
    public WifiFuture<Connection> join(String ssid, Passphrase passphrase) {
        return join(Network.builder(ssid).passphrase(passphrase).build(), DEFAULT_TIMEOUT);
    }

    /**
     * Joins a network: looks for it, takes the best security that its access points offer (WPA3 before WPA2), connects,
     * and saves the network only when the connection stands. If that fails or is cancelled, everything is as before. Of a
     * network that is configured already, the given values replace those that are saved, if the connection stands.
     *
     * @param network  what is known of it; without a key management, that of the best security is chosen. Its passphrases
     *     are closed when the operation ends
     * @param timeout  how long the connection may take, in whole seconds; the scans before come on top of that. The other
     *     methods take 25 s
     * @return the connection. It fails with a {@link WifiException}
     */
    public WifiFuture<Connection> join(Network network, Duration timeout) {
        int seconds = secondsOf(timeout);
        Secrets secrets = new Secrets();
        try {
            String[] assignments = secrets.assignmentsOf(network).toArray(new String[0]);
            return operations.startConnecting("join",
                    cancellation -> new Connection(new Members(Natives.join0(cancellation.handle(),
                            adapter, network.ssid().hex(), assignments, secrets.all(), seconds))),
                    secrets::close);
        } catch (RuntimeException e) {
            secrets.close();
            throw e;
        }
    }

    /**
     * Connects to a configured network. The other networks stay enabled.
     *
     * @param ssid  its name
     * @return the connection. It fails with a {@link WifiException} after 25 s at the latest; the supplicant goes on trying
     *     then, among all networks
     */
    public WifiFuture<Connection> connect(String ssid) {
        return connect(Ssid.of(ssid), DEFAULT_TIMEOUT);
    }

    /**
     * Connects to a configured network. The other networks stay enabled.
     *
     * @param ssid  its name
     * @param timeout  how long that may take, in whole seconds
     * @return the connection, as {@link #connect(String)} does
     */
    public WifiFuture<Connection> connect(Ssid ssid, Duration timeout) {
        int seconds = secondsOf(timeout);
        String name = ssid.hex();
        return operations.startConnecting("connect", cancellation -> new Connection(new Members(
                Natives.connect0(cancellation.handle(), adapter, name, seconds))), () -> {});
    }

    private static int secondsOf(Duration timeout) {
        if (timeout.compareTo(Duration.ofSeconds(1)) < 0 || timeout.compareTo(Duration.ofDays(1)) > 0)
            throw WifiException.wrongUse("a time-out has 1 second to 1 day; give another one");
        return (int) timeout.getSeconds();
    }

    /**
     * Ends the connection. Does nothing where there is none. A join or connect of this object that runs is cancelled
     * first.
     *
     * @throws WifiException  if the supplicant refuses
     */
    public void disconnect() {
        operations.cancelConnecting();
        operations.change(cancellation -> {
            Natives.disconnect0(cancellation.handle(), adapter);
            return null;
        });
    }

    /**
     * Enables all networks, and makes the supplicant choose among them. A join or connect of this object that runs is
     * cancelled first.
     *
     * @throws WifiException  if the supplicant refuses
     */
    public void roam() {
        operations.cancelConnecting();
        operations.change(cancellation -> {
            Natives.roam0(cancellation.handle(), adapter);
            return null;
        });
    }

    /**
     * What the supplicant does.
     *
     * @return {@link WifiState#UNKNOWN} for a state without a name here
     * @throws WifiException  if the supplicant does not answer
     */
    public WifiState state() {
        return WifiState.of(now().text("state"));
    }

    /**
     * The connection.
     *
     * @return empty where there is none
     * @throws WifiException  if the supplicant does not answer
     */
    public Optional<Link> link() {
        Members now = now();
        return now.is("connected") ? Optional.of(new Link(now)) : Optional.empty();
    }

    private Members now() {
        return operations.call(
                cancellation -> new Members(Natives.link0(cancellation.handle(), adapter)));
    }

    /**
     * Calls a listener with each event, from now on. One that is added twice is called twice.
     *
     * @param listener  called by a thread of the library
     * @throws WifiException  if the supplicant cannot be reached
     */
    public void addListener(WifiListener listener) {
        Objects.requireNonNull(listener);
        operations.requireOpen();
        listeners.add(listener);
    }

    /**
     * Stops calling a listener. Does nothing for one that was not added. A call that runs may end after this one.
     *
     * @param listener  that was added
     */
    public void removeListener(WifiListener listener) {
        listeners.remove(Objects.requireNonNull(listener));
    }

    /**
     * Ends the operations that run, whose futures and methods throw a {@link WifiException} with {@link Reason#CLOSED},
     * and stops calling the listeners. What a join has changed is taken back. Waits for that, 10 s at most. The connection
     * stays. Every later use throws such an exception, except that of {@link #adapter} and {@link #removeListener}.
     */
    @Override
    public void close() {
        operations.close();
        listeners.close();
    }

    /** The adapter. */
    @Override
    public String toString() {
        return "Wifi[" + adapter + "]";
    }

    /**
     * The changes of a block of {@link Wifi#edit}, which are saved together or not at all.
     *
     * <pre>{@code
     * wifi.edit(edit -> edit.remove("old"));
     * }</pre>
     *
     * <p>For the thread of the block, until the block ends.
     */
    public static final class Edit {
        private final List<String[]> steps = new ArrayList<>();
        private final Secrets secrets = new Secrets();

        private Edit() {}

        /**
         * Adds a network.
         *
         * @param network  with a passphrase, EAP methods, or a key management
         * @throws WifiException  if it has none of them
         */
        public void add(Network network) {
            List<String> row = row("add", network);
            if (!network.changes().containsKey("key_mgmt"))
                row.add("key_mgmt=" + keyManagementFor(network));
            steps.add(row.toArray(new String[0]));
        }

        /**
         * Changes a network.
         *
         * @param network  from {@link Network#edit}
         */
        public void save(Network network) {
            List<String> row = row("change", network);
            steps.add(row.toArray(new String[0]));
        }

        /**
         * Removes a network.
         *
         * @param ssid  its name
         */
        public void remove(String ssid) {
            remove(Ssid.of(ssid));
        }

        /**
         * Removes a network.
         *
         * @param ssid  its name
         */
        public void remove(Ssid ssid) {
            steps.add(new String[] {"remove", ssid.hex()});
        }

        private List<String> row(String kind, Network network) {
            List<String> row = new ArrayList<>(List.of(kind, network.ssid().hex()));
            row.addAll(secrets.assignmentsOf(network));
            return row;
        }

        // The supplicant would leave a network without one out of its file.
        private static KeyManagement keyManagementFor(Network network) {
            if (network.secrets().containsKey("psk"))
                return KeyManagement.WPA_PSK;
            if (network.changes().containsKey("eap"))
                return KeyManagement.WPA_EAP;
            throw WifiException.wrongUse(network.ssid() + " needs a passphrase, EAP methods, or"
                    + " keyManagement(NONE) for an open network");
        }
    }
}
