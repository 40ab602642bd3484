#pragma once

#include "Export.h"
#include "platform/PlatformUtil.h"

#include <atomic>
#include <cstdint>

/// Drives the supplicant: the only part of the library that talks to it.
///
/// Every operation runs the supplicant's command-line client (or, for one question, the process
/// lister) as a child process, waits for it with limited patience and reads what it printed. A
/// client that hangs is killed after about 5 s; until then the caller is blocked.
///
/// Any thread may call any operation; children run one at a time. Failure is reported only by the
/// result, false: bad arguments (null or empty where a text is needed, an interface name of 14 or
/// more characters), a client that cannot be started, hangs, dies or exits with another status than
/// 0, a reply that cannot be read. Nothing is thrown; no file, descriptor or child is left behind.
///
/// Lists are filled into a caller-provided array `out` with room for `max` entries; `*count` tells
/// how many are filled. Each entry is one line of the client's reply, at most 127 characters (a
/// longer line arrives in pieces), made with new[] and freed by the caller with delete[].
class PLATWIFI_API WifiUtil {
public:
    /// The one instance, which stays at its address until the process ends. The first call, and the
    /// first one after unload(), finds out by one client command whether the client stamps its replies
    /// with the time of day; other threads that call meanwhile wait for that. Null only where memory
    /// has run out.
    static WifiUtil* getInstance();

    /// Waits for the command in progress and makes the next getInstance() ask the client again. Any
    /// thread may call it at any time: other threads may go on using the instance.
    static void unload();

    WifiUtil();
    ~WifiUtil();

    WifiUtil(const WifiUtil&) = delete;
    WifiUtil& operator=(const WifiUtil&) = delete;

    /// Waits for the child in progress and ends the mutex; for the destructor. No command may
    /// follow.
    void cleanup();

    /// Runs one child: `path`, `interfaceArg`, `command`, `arg1`, `arg2`, `arg3`, its output going
    /// to `resultFile` (created with mode 0440, or emptied).
    ///
    /// A null `interfaceArg` is left out. A null `command` drops everything after the interface
    /// option, a null `arg1` drops `arg2` and `arg3`; a null `arg2` drops only itself.
    ///
    /// A child that still runs at the 100th look, 50 ms apart, is killed, and killed again every
    /// 2000 ms until it is gone, each time with a message on standard error. A pause between two looks
    /// ends early when the child does.
    ///
    /// @return true only when the child exited with status 0; false for a null `path` or
    ///         `resultFile`. The caller removes the result file.
    bool launchProcess(const char* path, const char* command, const char* interfaceArg,
                       const char* arg1, const char* arg2, const char* arg3,
                       const char* resultFile);

    /// Removes a leading time of day ("12:34:56.789: ") from `line` in place.
    /// @return true when one was removed; a line without three colons, or with nothing after the
    ///         third, is left as it is.
    static bool ignoreTimestamp(char* line);

    /// Whether the supplicant runs. With an interface name the process table is searched for it;
    /// with null its pid file ("/var/run/wpa_supplicant.pid") is looked for and no child is run.
    bool isWifiEnabled(const char* iface);

    /// Does nothing and returns true; a place for certificate stores that need an index.
    bool hashCACertificates();

    // Queries (see the class comment for lists).

    /// Names of the adapters the supplicant serves. Appends behind the `*count` entries that are
    /// there already.
    bool getWifiAdapters(char** out, unsigned char max, unsigned char* count);

    /// Configured networks: number, SSID, BSSID and flags, separated by tabs.
    bool getNetworkDatabaseSsids(const char* iface, char** out, unsigned char max,
                                 unsigned char* count);

    /// Access points of the last scan: BSSID, frequency (MHz), signal (dBm), flags and SSID,
    /// separated by tabs.
    bool discoverNetworks(const char* iface, char** out, unsigned char max, unsigned char* count);

    /// Current status, one "key=value" an entry.
    bool getCurrentNetworkStatus(const char* iface, char** out, unsigned char max,
                                 unsigned char* count);

    /// Starts a scan, unless one is running or the state is unknown, and blocks until the
    /// supplicant has left the scanning state: 1 s at least, about 16 s at most.
    /// @return true when the status could be read and the scan, where one was due, was started.
    bool scanNetworks(const char* iface);

    // Configuration. `id` is the supplicant's number of a network.

    /// Creates a network with this SSID and enables it; its network id goes to `*id`. When a later step
    /// fails the new network stays in the supplicant, and `*id` is valid. A reply that is no number
    /// from 0 to 255 fails without another command, and leaves `*id` alone.
    bool createNetwork(const char* iface, const char* ssid, unsigned char* id);

    /// Sets one field of a network. Texts are put into double quotes where the client wants them,
    /// unless they are quoted already or are hexadecimal keys. One that the client would take for an
    /// option of its own fails without a child.
    bool setNetworkValue(const char* iface, unsigned char id, const char* key, const char* value);

    /// Reads one field of a network, without its quotes, into `out`.
    /// @param outSize  room in `out`; a value of that many characters or more is cut and then not
    ///                 NUL-terminated
    /// @return false for a field that is not set, too; `out` is then as it was.
    bool getNetworkValue(const char* iface, unsigned char id, const char* key, char* out,
                         unsigned int outSize);

    /// Selects a network. True when the client ran, whatever it answered.
    bool connectToNetwork(const char* iface, unsigned char id);

    /// Disconnects the interface; `id` plays no part. True when the client ran, whatever it
    /// answered.
    bool disconnectFromNetwork(const char* iface, unsigned char id);

    /// Removes a network from the supplicant's configuration.
    bool removeNetwork(const char* iface, unsigned char id);

    /// Writes the configuration to the supplicant's file.
    bool saveConfiguration(const char* iface);

    /// Makes the supplicant read its file again; it then numbers its networks anew.
    bool reloadConfiguration(const char* iface);

    /// Makes the supplicant associate again.
    bool forceReassociation(const char* iface);

    /// Runs "`command` id `value`"; a null `value` is left out.
    bool executeCustom(const char* iface, unsigned char id, const char* command, const char* value);

private:
    static WifiUtil* INSTANCE;

    std::atomic<std::int32_t> timestampedOutput; ///< 1 when the client stamps its replies, else 0
    bool isProbed = false;                       ///< whether that was found out since unload()
    PlatformMutex launchMutex; ///< held from opening a result file until the child is reaped
};
