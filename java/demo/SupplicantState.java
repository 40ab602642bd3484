package demo;

import com.quorvel.platwifi.BWifiPlatformService;

import java.util.List;

/** The state of the supplicant, and the network that it is connected to. */
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
        ssid = name == null ? "" : Ssid.fromLibrary(name).toString();
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

    /** The name of the state, with the SSID of another network that is still connected. */
    String nameWhileConnectingTo(String network) {
        return isConnectedTo(network) ? NAMES.get(code) : toString();
    }

    /** The name of the state, with the SSID of a configured network that is connected. */
    @Override
    public String toString() {
        return NAMES.get(code) + (isConnected() && !ssid.isEmpty() ? " on " + ssid : "");
    }

    /**
     * Queries the network first and then the state, so that the state is never that of an earlier
     * network.
     */
    private static SupplicantState withNetwork(String iface) {
        String name = BWifiPlatformService.getCurrentNetwork0(iface);
        return new SupplicantState(BWifiPlatformService.getDaemonStatus0(iface), name);
    }
}
