#pragma once

#include "settings/KeyState.h"
#include "settings/replies/ListLine.h"
#include "settings/replies/WholeLines.h"

#include <optional>
#include <string>
#include <vector>

class WifiNetwork;
class WifiUtil;

namespace platwifi {

/// Which network in memory has which network id, and whether that id may be used.
///
/// wpa_supplicant gives its networks ids from 0 in the order of its list whenever it reads its file, and
/// a save makes it do so. The ids are the same as before where they were 0 to n-1 already and the file
/// holds the same networks. After any other save they are stale: they are confirmed by one list_networks
/// before the next command that needs one.
///
/// A network is found again by its SSID as the supplicant prints it, which may be another one than that
/// in memory: an escaped one, one that was edited but not saved, none at all. Of several networks
/// with one SSID each is known by its place among them. Where their number has changed, none of them is
/// known until the next load.
///
/// The caller holds the lock of the list whose networks these are, and removes them here before they
/// are deleted.
class NetworkIds {
public:
    /// Forgets all networks, before a load, and with them what became stale. That the supplicant got or
    /// lost networks since its last save is remembered: loading does not write its file.
    void forget() noexcept;

    // A load tells of every network that the supplicant lists, in its order.

    void listed(const ListedSsid& line);

    /// The line before was this network's. Without a usable id there is none that may be used.
    void loaded(WifiNetwork& network, const KeyState& key);

    // What is done with a network in the supplicant.

    /// It was created with the id that it has in memory.
    /// @param ssid  not null; where it is empty the network in memory has none
    void added(WifiNetwork& network, const char* ssid);

    void removed(const WifiNetwork& network);

    /// A field was sent.
    void written(const WifiNetwork& network, const char* key, const char* value, bool accepted);

    /// The supplicant wrote its file and read it again.
    /// @param everywhere  false when one of several adapters could not write its own
    void saved(bool everywhere);

    /// Asks the supplicant for its list when ids are stale; to be called before a command that needs one.
    /// @param iface  the adapter whose networks these are
    /// @return false when it did not answer: no id may be used
    bool confirm(WifiUtil& util, const char* iface);

    /// Does the same with a list that is there already.
    void confirm(const Lines& list);

    /// Whether the id that the network has in memory may be used. False for a network that the
    /// supplicant does not list, or that cannot be told from another.
    bool isKnown(const WifiNetwork& network) const;

private:
    struct Entry {
        std::string printed;             ///< its SSID in the supplicant
        std::optional<unsigned char> id; ///< none where it is not known, or above 255
        WifiNetwork* network = nullptr;  ///< null for one that is not in memory
        KeyState key = {};
    };

    // The networks of the supplicant in its order; behind them those that it has lost.
    using Entries = std::vector<Entry>;

    static Entries entriesOf(const Lines& list);
    bool keepsIds() const;
    bool hasNetworks() const;
    void take(Entries listed);
    Entry* counterpart(const Entry& entry, Entries& listed) const;

    Entries m_entries;
    bool m_isStale = false;
    bool m_isChanged = false; ///< whether networks came or went since the last save
};

} // namespace platwifi
