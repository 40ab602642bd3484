#pragma once

#include "Export.h"
#include "platform/PlatformUtil.h"

#include <atomic>
#include <cstdint>

/// Drives the supplicant. No other part of the library talks to it.
///
/// Every operation runs the supplicant's command-line client (isWifiEnabled() the process lister)
/// as a child process, waits for its end and reads what it printed. A client that hangs is killed
/// after about 5 s; until then the caller is blocked.
///
/// Any thread may call any operation; children run one at a time. An operation that fails returns
/// false: for a bad argument (null or empty where a text is needed, an interface name of 14 or more
/// characters), for a client that cannot be started, hangs, dies or exits with another status than
/// 0, and for a reply that cannot be read. Nothing is thrown; no file, descriptor or child is left
/// behind.
///
/// A query fills the caller's array `out`, which has room for `max` entries, and sets `*count` to
/// the number of entries filled. Each entry is one line of the client's reply, at most 127
/// characters (a longer line arrives in pieces), made with new[] and freed by the caller with
/// delete[].
class PLATWIFI_API WifiUtil {
public:
    /// The one instance, at the same address until the process ends. The first call, and the first
    /// one after unload(), runs one client command to find out whether the client stamps its
    /// replies with the time of day; other callers wait for that. Null only when memory has run
    /// out.
    static WifiUtil* getInstance();

    /// Waits for the command in progress. The next getInstance() asks the client again. Any thread
    /// may call it at any time; other threads may continue to use the instance.
    static void unload();

    WifiUtil();
    ~WifiUtil();

    WifiUtil(const WifiUtil&) = delete;
    WifiUtil& operator=(const WifiUtil&) = delete;

    /// Waits for the child in progress and destroys the mutex; for the destructor. No command may
    /// follow.
    void cleanup();

    /// Runs one child: `path`, `interfaceArg`, `command`, `arg1`, `arg2`, `arg3`, its output going
    /// to `resultFile` (created with mode 0440, or emptied).
    ///
    /// A null `command` drops itself and all arguments, a null `arg1` drops `arg2` and `arg3`. A
    /// null `interfaceArg`, `arg2` or `arg3` drops only itself.
    ///
    /// The child is looked at every 50 ms. One that still runs at the 100th look is killed, and
    /// again every 2000 ms while it runs, each time with a message on standard error. A pause
    /// between two looks ends early when the child does.
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

    /// Whether the supplicant runs. With an interface name the process table is searched for it.
    /// With null no child is run; it runs if its pid file ("/var/run/wpa_supplicant.pid") exists.
    bool isWifiEnabled(const char* iface);

    /// Does nothing and returns true. For systems whose certificate store needs an index.
    bool hashCACertificates();

    // Queries (see the class comment for lists).

    /// Names of the adapters of the supplicant. Appends to the `*count` entries that are already
    /// there.
    bool getWifiAdapters(char** out, unsigned char max, unsigned char* count);

    /// Configured networks: id, SSID, BSSID and flags, separated by tabs.
    bool getNetworkDatabaseSsids(const char* iface, char** out, unsigned char max,
                                 unsigned char* count);

    /// The configured networks whose id is greater: a reply of the supplicant has room for 4096 bytes, and
    /// networks beyond are left out. None under the profile `device`.
    /// @param id  as the client prints it
    bool getNetworksAfter(const char* iface, const char* id, char** out, unsigned char max,
                          unsigned char* count);

    /// Access points of the last scan: BSSID, frequency (MHz), signal (dBm), flags and SSID,
    /// separated by tabs.
    bool discoverNetworks(const char* iface, char** out, unsigned char max, unsigned char* count);

    /// Current status, one "key=value" an entry.
    bool getCurrentNetworkStatus(const char* iface, char** out, unsigned char max,
                                 unsigned char* count);

    /// Starts a scan, unless one is running or the state is unknown, and blocks until the
    /// supplicant has left the scanning state: 1 s at least, about 16 s at most.
    /// @return true when the first status could be read and the scan, unless none was needed, was
    ///         started
    bool scanNetworks(const char* iface);

    // Configuration. `id` is a network id of the supplicant.

    /// Creates a network with this SSID (its bytes under the profile `modern`), enables it and sets `*id` to its id. When a later step
    /// fails, the new network stays in the supplicant, and `*id` is valid. When the reply is no
    /// number from 0 to 255, the call fails without another command and does not change `*id`.
    bool createNetwork(const char* iface, const char* ssid, unsigned char* id);

    /// Sets one field of a network. A text field gets double quotes, unless the value is already
    /// quoted or is a hexadecimal key. A value that the client would take for one of its options
    /// fails without a child.
    bool setNetworkValue(const char* iface, unsigned char id, const char* key, const char* value);

    /// Takes the value of one field of a network away, so that the supplicant's default holds. The supplicant
    /// refuses that for keys (psk, wep_key0 to 3).
    bool unsetNetworkValue(const char* iface, unsigned char id, const char* key);

    /// Reads one field of a network, without its quotes, into `out`.
    /// @param outSize  room in `out`; a value of that many characters or more is cut and then not
    ///                 NUL-terminated
    /// @return false also for a field that is not set; `out` is unchanged then
    bool getNetworkValue(const char* iface, unsigned char id, const char* key, char* out,
                         unsigned int outSize);

    /// Selects a network. True when the client exited with status 0, also after a refusal.
    bool connectToNetwork(const char* iface, unsigned char id);

    /// Disconnects the interface; `id` is not used. True when the client exited with status 0, also
    /// after a refusal.
    bool disconnectFromNetwork(const char* iface, unsigned char id);

    /// Removes a network from the supplicant's configuration.
    bool removeNetwork(const char* iface, unsigned char id);

    /// Writes the configuration to the supplicant's file.
    bool saveConfiguration(const char* iface);

    /// Makes the supplicant read its file again. It gives its networks new ids then, from 0.
    bool reloadConfiguration(const char* iface);

    /// Makes the supplicant associate again.
    bool forceReassociation(const char* iface);

    /// Runs "`command` id `value`"; a null `value` is left out.
    bool executeCustom(const char* iface, unsigned char id, const char* command, const char* value);

private:
    static WifiUtil* INSTANCE;

    std::atomic<std::int32_t> timestampedOutput; ///< 1 when the client stamps its replies, else 0
    bool isProbed = false;                       ///< whether `timestampedOutput` is known
    PlatformMutex launchMutex; ///< held from opening a result file until the child is reaped
};
