#pragma once

#include "Export.h"
#include "model/WifiTypes.h"
#include "platform/ErrorHandler.h"
#include "platform/PlatformUtil.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class BufferedXWriter;
class WifiHostSettingsWatchdog;
class WifiNetwork;
class WifiNetworkList;
class WifiUtil;

namespace platwifi {
class NetworkIds;
class ReplyLines;
enum class ListMark;
bool refreshSettings() noexcept;
} // namespace platwifi

/// The Wi-Fi state of the host: the adapters that the supplicant serves, the networks it is
/// configured with, the one it is on, and its state, loaded from the supplicant and held in memory.
///
/// There is one instance in a process. It stays at its address until the process ends; unload() empties
/// it. It is loaded by the first call that needs it, which runs some 28 client commands a network, and
/// it reloads itself when another process has saved. An instance that could not be loaded has no
/// networks and stays so until reload().
///
/// Any thread may call anything at any time, unload() and reload() included. Operations take the lock
/// they need; a caller that looks at networks holds lockSettings() from the lookup to the last use.
/// Adapter names and SSIDs are NUL-terminated texts and stay the caller's; SSIDs are compared byte for
/// byte. The result alone reports a failure; nothing is thrown, and where memory has run out the process
/// ends.
class PLATWIFI_API WifiHostSettings {
public:
    /// The one instance, loaded by the first call and by the first one after unload(); other threads
    /// that call meanwhile wait for that.
    /// @param errors  for the time of the load; may be null
    static WifiHostSettings* getInstance(ErrorHandler* errors) noexcept;

    /// Empties the instance as unload() does, and loads it: the way back after a failure.
    /// @param errors  for the time of the load; may be null
    static WifiHostSettings* reload(ErrorHandler* errors) noexcept;

    /// Ends the refresh thread, leaves the memory that processes share, and frees all networks and
    /// names; pointers to them are dangling afterwards. The next call that needs the settings loads
    /// them again. Nothing where they are not loaded.
    ///
    /// Waits for the operations of other threads, and for a reload in progress on the refresh thread.
    /// The calling thread may hold lockSettings(), and keeps it then.
    static void unload() noexcept;

    /// Starts the refresh thread and loads everything. For getInstance().
    explicit WifiHostSettings(ErrorHandler* errors);

    /// Ends the refresh thread and frees everything, networks included.
    virtual ~WifiHostSettings();

    WifiHostSettings(const WifiHostSettings&) = delete;
    WifiHostSettings& operator=(const WifiHostSettings&) = delete;

    /// Takes the lock of the networks and of the state, as often as the thread likes, and loads the
    /// settings where they are unloaded. An instance without networks is locked all the same.
    /// @return true
    bool lockSettings() noexcept;

    /// Gives back one lockSettings() of the calling thread.
    /// @return true
    bool unlockSettings() noexcept;

    /// Discards everything and loads it again. When that fails there are no networks any more, and
    /// no refresh thread.
    /// @return true, also when loading failed
    bool refreshAllSettings() noexcept;

    // What the supplicant is doing now. The caller holds lockSettings() for the first two as long as it
    // uses their result.

    /// Asks which network an adapter is on.
    /// @return the network, or null: not connected, not known, or the supplicant did not answer
    WifiNetwork* getCurrentNetwork(const char* iface) noexcept;

    /// Asks for the supplicant's state, and brings the current network up to date.
    /// @param iface  null for no question at all; which adapter it is plays no part
    /// @return a WpaState; WPA_STATE_UNKNOWN when the supplicant did not answer
    unsigned int getCurrentStatus(const char* iface) noexcept;

    /// Brings the status of all networks, and how they were last received, up to date. Within 5000 ms
    /// of the last time, whether or not that succeeded, and of a first load it returns at once: it
    /// does nothing and waits for no lock.
    /// @return false when the networks could not be listed
    bool refreshDatabaseNetworksStatus() noexcept;

    // One network. The caller's SSID chooses it, the first one of the list that has it.

    /// The network with this SSID, or null. The caller holds lockSettings().
    /// @param iface  plays no part
    WifiNetwork* getNetwork(const char* iface, const char* ssid) const noexcept;

    /// Creates a network in the supplicant and in memory. Nothing is saved.
    /// @return true when it was added; false when there is one with this SSID, or the supplicant
    ///         refused
    bool addNetwork(const char* iface, const char* ssid) noexcept;

    /// Removes a network from the supplicant and from memory. Nothing is saved.
    /// @return true when it is not there any more, or never was
    bool removeNetwork(const char* iface, const char* ssid) noexcept;

    /// Selects a network. Returns before the supplicant is connected.
    /// @return true when the supplicant was told to; false for an unknown SSID
    bool connectNetwork(const char* iface, const char* ssid) noexcept;

    /// Disconnects the interface, when the network is known. The next connectNetwork()
    /// reassociates first.
    /// @return true when the supplicant was told to, or there is no such network
    bool disconnectNetwork(const char* iface, const char* ssid) noexcept;

    /// Disconnects, enables every network in the supplicant again and lets it choose.
    /// @return whether the supplicant was told to
    bool roamNetworks(const char* iface) noexcept;

    // Copies for the caller, who frees each entry with delete[]. `*count` tells how many there are.

    /// The SSIDs of the networks, the last one added first, `capacity` at most.
    /// @return true; false for a null `out` or `count`, and when a network without SSID was met, after
    ///         which the calling thread still holds the lock of the networks: unlockNetworks() gives
    ///         it back
    bool getNetworkDatabaseSsids(const char* iface, char** out, unsigned char capacity,
                                 unsigned char* count) noexcept;

    /// Gives back the lock that a getNetworkDatabaseSsids() of the calling thread has kept.
    void unlockNetworks() noexcept;

    /// The names of the adapters, two at most, whatever `capacity` says. Waits for no lock while the
    /// settings are loaded; a reload in progress has no names.
    /// @return true
    bool getWifiAdapters(char** out, unsigned char capacity, unsigned char* count) const noexcept;

    /// Writes every changed field to the supplicant, makes it save its configuration and read it
    /// again, and lets other processes know. Nothing is done when nothing has changed.
    /// @return 1, or 0 when the configuration could not be saved, or a changed network was left out
    ///         because the supplicant has it no more; that one keeps its changes
    int saveNetworkSettings() noexcept;

    // Reports of the whole state. Each brings the status of the networks up to date first, as often as
    // refreshDatabaseNetworksStatus() does, and holds the lock of the networks to the end.

    /// Writes the state as an XML document (docs/wifiHostSettings.xsd). Asks the supplicant for its
    /// state. Secrets are enciphered; WEP keys are not.
    /// @param out     gets the document behind what it holds already; stays the caller's
    /// @param errors  told why a secret could not be enciphered, which leaves its attribute empty; may
    ///                be null
    /// @param full    every network with its security; else SSID, strength and status alone
    /// @return true; false, with nothing written, without `out` and where the supplicant cannot be
    ///         driven
    bool getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors, bool full) noexcept;

    /// Prints the networks, all their secrets in plain, and the state to standard error. For a
    /// developer's eyes only.
    void dump() noexcept;

private:
    friend bool platwifi::refreshSettings() noexcept;

    struct Unloaded {};
    explicit WifiHostSettings(Unloaded) noexcept;
    static WifiHostSettings& instance();

    // Between unloaded and loaded. The caller holds the gate.
    void activate(ErrorHandler* errors);
    void deactivate() noexcept;
    void load(ErrorHandler* errors);
    bool loadAgain();

    // The lock of the networks alone, the first half of lockSettings().
    void lockNetworks() noexcept;

    void startWatchdog();
    void stopWatchdog() noexcept;
    void releaseAdapterNames() noexcept;
    void forgetState() noexcept;
    void discardState() noexcept;
    bool statusRefreshIsDue(std::uint64_t now) const noexcept;
    void stampStatusRefresh(std::uint64_t time) noexcept;

    // Loading. False when the supplicant did not answer; what was loaded until then stays. The caller
    // holds lockSettings(), or is the constructor.
    bool initializeSettings();
    bool loadAdapterNames(WifiUtil& util);
    void loadNetworks(WifiUtil& util, const std::vector<std::string>& lines);
    void loadNetwork(WifiUtil& util, const char* line);
    bool loadScan(WifiUtil& util);
    bool loadStatus(WifiUtil& util);
    const char* adapterName() const noexcept; ///< the one that commands are for; null for none

    // The state of the supplicant and the network that it is on. Each takes the settings lock.
    void setCurrentNetwork(WifiNetwork* network) noexcept;
    void setSupplicantState(WpaState state) noexcept;
    void followStatusLine(const char* line) noexcept;
    void followStatusSsid(const char* ssid) noexcept;
    void settleStatus() noexcept;
    bool followList(const std::vector<std::string>& list);
    bool followListLines(const std::vector<std::string>& lines, WifiNetwork& network) noexcept;
    void followMark(platwifi::ListMark mark, WifiNetwork& network) noexcept;
    bool moveTo(WifiNetwork* network) noexcept;
    void leaveNetwork(const char* ssid) noexcept;
    void leaveIdleNetwork() noexcept;

    // Saving. False when the supplicant could not save.
    bool saveChanges(WifiUtil& util);
    bool writeNetwork(WifiUtil& util, WifiNetwork& network);
    bool saveConfiguration(WifiUtil& util);

    /// Whether the id of this network can be used, to be asked with lockSettings() before a command that
    /// names a network. Costs a command only when ids are stale.
    bool confirmId(WifiUtil& util, const WifiNetwork& network);

    /// Taken before the other locks, and for loading and unloading. A thread that holds it may use
    /// everything below: no other thread loads, unloads or reloads meanwhile.
    PlatformMutex gate;

    /// From the end of a load, failed or not, to the next unload. Changed under the gate.
    std::atomic<bool> isActive{false};

    PlatformMutex _sync;                                ///< guards currentNetwork, supplicantState
    mutable std::mutex adapterNamesMutex;               ///< guards the pointer below for readers
    std::unique_ptr<platwifi::ReplyLines> adapterNames; ///< null when not loaded
    mutable std::mutex refreshTimeMutex; ///< guards the next; nothing else is done under it
    std::uint64_t lastStatusRefresh;     ///< reading of the runtime's clock
    WifiNetwork* currentNetwork;         ///< of the list, or null
    const std::unique_ptr<WifiNetworkList> ownList; ///< kept, with its lock, also when not loaded
    WifiNetworkList* networkList;                   ///< that one, or null when not loaded
    WpaState supplicantState;
    std::unique_ptr<WifiHostSettingsWatchdog> watchdog; ///< null after a failure
    std::unique_ptr<platwifi::NetworkIds> networkIds;   ///< of the networks of the list
};
