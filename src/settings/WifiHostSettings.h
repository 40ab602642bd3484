#pragma once

#include "Export.h"
#include "model/WifiTypes.h"
#include "platform/ErrorHandler.h"
#include "platform/PlatformUtil.h"

#include <atomic>
#include <cstddef>
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
class KeyState;
class LateFields;
class NetworkIds;
class ReplyLines;
enum class ListFlag;
struct ListEntry;
enum class StatusReader;
bool refreshSettings() noexcept;
template <typename Signature>
class FunctionRef;
using ValueSource = FunctionRef<const char*(const char* key)>;
} // namespace platwifi

/// The Wi-Fi state of the host: the supplicant's adapters, its configured networks, the current network
/// and the supplicant's state, loaded from the supplicant and held in memory.
///
/// There is one instance in a process. It stays at its address until the process ends; unload() empties
/// it. It is loaded by the first call that needs it, which runs 10 to 30 client commands a network, and
/// it reloads itself when another process has saved. An instance that could not be loaded has no
/// networks and stays so until reload().
///
/// Any thread may call anything at any time, unload() and reload() included. Operations take the lock
/// they need; a caller that looks at networks holds lockSettings() from the lookup to the last use.
/// Adapter names and SSIDs are NUL-terminated texts, which the caller owns; SSIDs are compared byte for
/// byte. The result alone reports a failure. Nothing is thrown; where memory has run out, the process ends.
class PLATWIFI_API WifiHostSettings {
public:
    /// The one instance. The first call, and the first one after unload(), loads it; other threads that
    /// call meanwhile wait for the load.
    /// @param errors  used during the load only; may be null
    static WifiHostSettings* getInstance(ErrorHandler* errors) noexcept;

    /// Empties the instance as unload() does, and loads it again. After a failed load this is the only way
    /// to load anew, apart from unload().
    /// @param errors  used during the load only; may be null
    static WifiHostSettings* reload(ErrorHandler* errors) noexcept;

    /// Ends the refresh thread, detaches from the memory that processes share, and frees all networks and
    /// names; pointers to them are invalid afterwards. The next call that needs the settings loads them
    /// again. Does nothing where they are not loaded.
    ///
    /// Waits for the operations of other threads, and for a reload in progress on the refresh thread.
    /// The calling thread may hold lockSettings(); it still holds it afterwards.
    static void unload() noexcept;

    /// Starts the refresh thread and loads everything. Programs call getInstance() instead.
    explicit WifiHostSettings(ErrorHandler* errors);

    /// Ends the refresh thread and frees everything, networks included.
    virtual ~WifiHostSettings();

    WifiHostSettings(const WifiHostSettings&) = delete;
    WifiHostSettings& operator=(const WifiHostSettings&) = delete;

    /// Takes the lock of the networks and of the state, and loads the settings where they are unloaded. The
    /// lock is recursive. An instance that could not be loaded is locked as well.
    /// @return true
    bool lockSettings() noexcept;

    /// Releases one lockSettings() of the calling thread.
    /// @return true
    bool unlockSettings() noexcept;

    /// Discards everything and loads it again. When that fails, the instance is left without networks and
    /// without a refresh thread.
    /// @return true, also when loading failed
    bool refreshAllSettings() noexcept;

    // The supplicant's status. For the first two the caller holds lockSettings(), from the call until it has
    // used the result.

    /// Asks the supplicant for the current network of an adapter.
    /// @return the network; null where there is none, where it is not in memory, and where the supplicant
    ///         did not answer. A status without an SSID gives the current network that is known so far.
    WifiNetwork* getCurrentNetwork(const char* iface) noexcept;

    /// Asks the supplicant for its state, and updates the current network.
    /// @param iface  null asks nothing; any other value asks the first adapter
    /// @return a WpaState; WPA_STATE_UNKNOWN when the supplicant did not answer
    unsigned int getCurrentStatus(const char* iface) noexcept;

    /// Updates the status of all networks, and what the last scan showed of them. Within 5000 ms of the
    /// last update, successful or not, and of the first load it does nothing: it returns at once and waits
    /// for no lock.
    /// @return false when the supplicant did not list the networks
    bool refreshDatabaseNetworksStatus() noexcept;

    // Operations on one network: the first one of the list that has the SSID.

    /// The network with this SSID, or null. The caller holds lockSettings().
    /// @param iface  not used
    WifiNetwork* getNetwork(const char* iface, const char* ssid) const noexcept;

    /// Creates a network in the supplicant and in memory. Nothing is saved.
    /// @return true when it was added; false when there is a network with this SSID already, or the
    ///         supplicant refused
    bool addNetwork(const char* iface, const char* ssid) noexcept;

    /// Removes a network from the supplicant and from memory. Nothing is saved.
    /// @return true when there is no such network any more, also where there was none
    bool removeNetwork(const char* iface, const char* ssid) noexcept;

    /// Selects a network. Returns before the supplicant is connected.
    /// @return true when the supplicant's client carried out the command; false for an unknown SSID
    bool connectNetwork(const char* iface, const char* ssid) noexcept;

    /// Disconnects the adapter, when there is a network with this SSID. The next connectNetwork()
    /// reassociates first.
    /// @return true when the client carried out the command, or there is no such network
    bool disconnectNetwork(const char* iface, const char* ssid) noexcept;

    /// Disconnects, enables every network in the supplicant, and lets the supplicant choose among them.
    /// @return whether the client carried out the commands to disconnect and to reassociate
    bool roamNetworks(const char* iface) noexcept;

    // Copies, each of which the caller frees with delete[]. `*count` is set to their number.

    /// The SSIDs of the networks, `capacity` at most, beginning with the network that was added last.
    /// @return true; false for a null `out` or `count`, and where a network has no SSID. In that second
    ///         case the calling thread still holds the lock of the networks, and must call unlockNetworks().
    bool getNetworkDatabaseSsids(const char* iface, char** out, unsigned char capacity,
                                 unsigned char* count) noexcept;

    /// Releases the lock that a getNetworkDatabaseSsids() of the calling thread left held.
    void unlockNetworks() noexcept;

    /// The names of the adapters, two at most (16 under the profile `modern`); `capacity` is not used. Does not wait for other operations
    /// while the settings are loaded; during a reload there are no names.
    /// @return true
    bool getWifiAdapters(char** out, unsigned char capacity, unsigned char* count) const noexcept;

    /// Writes every dirty field to the supplicant, makes it save its configuration and read it again, and
    /// raises the refresh signal for other processes. Does nothing when there is no change.
    /// @return 1; 0 when the supplicant could not save its configuration, or has no network for one with
    ///         changes, which keeps them
    int saveNetworkSettings() noexcept;

    /// The same. Under the profile `modern` a save fails, too, when the supplicant refuses a field: nothing is
    /// saved then, the supplicant reads its file again, and all changes stay in memory.
    /// @param errors  gets an error that names that field; may be null
    int saveNetworkSettings(ErrorHandler* errors) noexcept;

    /// Writes every dirty field to the supplicant, as a save does, and saves nothing: for a caller that tries
    /// a network before it saves it. Until the supplicant saves its configuration, a command that makes it
    /// read its file again takes all of it back.
    /// @param errors  as for saveNetworkSettings(); may be null
    /// @return 1; 0 when the supplicant has no network for one with changes, which keeps them, and under the
    ///         profile `modern` also when it refuses a field: all changes stay in memory then
    int writeNetworkSettings(ErrorHandler* errors) noexcept;

    // Reports of the whole state. Each calls refreshDatabaseNetworksStatus() first, and holds the lock of
    // the networks to the end.

    /// Writes the state as an XML document (docs/wifiHostSettings.xsd). Asks the supplicant for its
    /// state. Secrets are enciphered; WEP keys are not.
    /// @param out     the document is appended to it; the caller owns it
    /// @param errors  gets the error when a secret cannot be enciphered, whose attribute is empty then; may
    ///                be null
    /// @param full    true: every network with its security; false: SSID, strength and status alone
    /// @return true; false, with nothing written, for a null `out` and where the supplicant's client cannot
    ///         be run
    bool getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors, bool full) noexcept;

    /// Prints the networks, with all their secrets in plain text, and the state to standard error. For
    /// debugging only.
    void dump() noexcept;

private:
    friend bool platwifi::refreshSettings() noexcept;
    friend class platwifi::LateFields;

    struct Unloaded {};
    explicit WifiHostSettings(Unloaded) noexcept;
    static WifiHostSettings& instance();

    // Loading and unloading. The caller holds the gate.
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
    // holds lockSettings(), or the gate where the settings are not loaded yet.
    bool initializeSettings();
    bool loadAdapterNames(WifiUtil& util);
    bool loadNetworks(WifiUtil& util, std::vector<std::string> lines);
    bool loadNetwork(WifiUtil& util, const char* line);
    platwifi::KeyState loadFields(WifiNetwork& network, const platwifi::ValueSource& valueOf);
    bool loadScan(WifiUtil& util);
    bool loadStatus(WifiUtil& util);
    const char* adapterName() const noexcept; ///< the first adapter; null for none

    /// Calls `read` with the values that the supplicant has for a network of the list. The caller holds
    /// lockSettings().
    /// @return false when the supplicant did not answer or has no such network: what `read` has got, if it
    ///         was called, is incomplete
    bool readLate(const WifiNetwork& network,
                  const platwifi::FunctionRef<void(const platwifi::ValueSource&)>& read);

    // The supplicant's state and the current network. Each function that changes one of them takes _sync.

    /// The status of a network that is replaced as the current one.
    enum class Previous { ENABLED_UNLESS_DISABLED, ENABLED };

    /// Makes a network of the list the current one; null for none. A network with the same SSID stays the
    /// current one.
    /// @return whether the current network was replaced
    bool setCurrent(WifiNetwork* network,
                    Previous previous = Previous::ENABLED_UNLESS_DISABLED) noexcept;

    void storeCurrent(WifiNetwork* network) noexcept; ///< changes no network's status
    void clearCurrent(const char* ssid) noexcept;     ///< where it has this SSID; changes no status
    void clearIdleCurrent() noexcept;                 ///< where its status is enabled or disabled
    void setSupplicantState(WpaState state) noexcept;

    void applyStatus(const std::vector<std::string>& status,
                     platwifi::StatusReader reader) noexcept;
    void applyWpaState() noexcept;
    bool applyList(const std::vector<std::string>& list);
    bool applyListTo(WifiNetwork& network,
                     const std::vector<platwifi::ListEntry>& entries) noexcept;
    void applyListFlag(WifiNetwork& network, platwifi::ListFlag flag) noexcept;

    // Under the profile `modern`: the supplicant disables all other networks when it selects one. They are
    // enabled again when the connection stands, is given up, or is saved. The caller holds lockSettings().
    void noteEnabledOthers(const WifiNetwork& selected);
    void enableOthersWhenConnected(WifiUtil& util);
    void enableOthers(WifiUtil& util);

    /// What became of the networks with changes.
    struct Written {
        bool isRefused = true;    ///< ids could not be confirmed, or the supplicant refused a field
        std::size_t networks = 0; ///< how many were written
        bool isComplete = false;  ///< whether they were all written
    };

    // Saving. False when the supplicant could not save.
    bool saveChanges(WifiUtil& util);
    Written writeChanges(WifiUtil& util);
    void reportRefusedField(ErrorHandler* errors) const;
    bool writeNetwork(WifiUtil& util, WifiNetwork& network);
    bool saveConfiguration(WifiUtil& util);
    void takeBack(WifiUtil& util);

    /// Whether the id of this network may be used. To be called, with lockSettings(), before a command that
    /// names a network. Runs a command only when ids are stale.
    bool confirmId(WifiUtil& util, const WifiNetwork& network);

    /// True from the end of a load, failed or not, to the next unload. Changed under the gate.
    std::atomic<bool> isActive{false};

    PlatformMutex _sync;                                ///< guards currentNetwork, supplicantState
    mutable std::mutex adapterNamesMutex;               ///< guards adapterNames
    std::unique_ptr<platwifi::ReplyLines> adapterNames; ///< null when not loaded
    mutable std::mutex refreshTimeMutex;                ///< guards lastStatusRefresh
    std::uint64_t lastStatusRefresh;                    ///< in milliseconds of Zam's clock
    WifiNetwork* currentNetwork;                        ///< of the list, or null

    /// Exists also when not loaded: its lock is the gate. That is taken before the other locks, and for loading
    /// and unloading. While a thread holds it, no other thread loads, unloads or reloads.
    const std::unique_ptr<WifiNetworkList> ownList;

    WifiNetworkList* networkList; ///< ownList, or null when not loaded
    WpaState supplicantState;
    std::unique_ptr<WifiHostSettingsWatchdog> watchdog; ///< null after a failure
    std::unique_ptr<platwifi::NetworkIds> networkIds;   ///< of the networks of the list
    std::string selectedSsid;                           ///< of the last connectNetwork()
    std::vector<std::string> disabledOthers; ///< SSIDs of the networks that it has disabled
    std::string refusedField;                ///< of the last save; empty for none
};

namespace platwifi {

/// Holds lockSettings() for the duration of a scope.
class SettingsLock {
public:
    explicit SettingsLock(WifiHostSettings& settings) noexcept : m_settings(settings) {
        m_settings.lockSettings();
    }
    ~SettingsLock() { m_settings.unlockSettings(); }

    SettingsLock(const SettingsLock&) = delete;
    SettingsLock& operator=(const SettingsLock&) = delete;

private:
    WifiHostSettings& m_settings;
};

} // namespace platwifi

/// An error handler that saves the error and raises nothing, for calls that have no error handler.
class NullExceptionHandler : public virtual ErrorHandler {
public:
    using ErrorHandler::error;

    // Before the destructor: the order of the virtual operations is part of the binary interface.
    void error(MessageBundle* bundle) override { saveError(bundle); }
    ~NullExceptionHandler() override = default;
};
