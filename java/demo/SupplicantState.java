package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.List;

/** What the supplicant is doing, and for which network. */
final class SupplicantState {
    /** In the order of their codes. */
    private static final List<String> NAMES = List.of("UNKNOWN", "DISCONNECTED", "IDLE", "SCANNING",
            "ASSOCIATING", "ASSOCIATED", "4WAY_HANDSHAKE", "GROUP_HANDSHAKE", "COMPLETED");
    private static final int UNKNOWN = NAMES.indexOf("UNKNOWN");
    private static final int COMPLETED = NAMES.indexOf("COMPLETED");

    private final int code;
    private final String ssid;

    private SupplicantState(int code, String name) {
        this.code = code;
        ssid = name == null ? "" : Ssid.fromClient(name).toString();
    }

    static SupplicantState of(String iface) {
        int code = BWifiPlatformService.getDaemonStatus0(iface);
        return code == COMPLETED ? withNetwork(iface) : new SupplicantState(code, null);
    }

    /** The library has no code for some states that pass quickly, such as an authentication. */
    boolean isKnown() {
        return code != UNKNOWN;
    }

    boolean isConnected() {
        return code == COMPLETED;
    }

    boolean isConnectedTo(String network) {
        return isConnected() && ssid.equals(network);
    }

    /** Its name; a network that is still to be left for another one is named too. */
    String onTheWayTo(String network) {
        return isConnectedTo(network) ? NAMES.get(code) : toString();
    }

    /** The network is named only where it is a configured one. */
    @Override
    public String toString() {
        return NAMES.get(code) + (isConnected() && !ssid.isEmpty() ? " on " + ssid : "");
    }

    /** The network first: the state that is asked for later is that of this network then. */
    private static SupplicantState withNetwork(String iface) {
        String name = BWifiPlatformService.getCurrentNetwork0(iface);
        return new SupplicantState(BWifiPlatformService.getDaemonStatus0(iface), name);
    }
}
