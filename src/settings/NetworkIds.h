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
/// Confirming finds each network by its SSID as the supplicant prints it. That may differ from the SSID in
/// memory: it may be escaped, be an older one because an edit was not saved, or be missing. Several
/// networks with one SSID are distinguished by their order. When their number has changed, none of them is
/// known until the next load.
///
/// The caller holds the lock of the list that has these networks, and calls removed() before it deletes
/// one.
class NetworkIds {
public:
    /// Forgets all networks before a load; no id is stale then. It still knows whether networks were added
    /// or removed since the supplicant's last save, because a load does not write the supplicant's file.
    void forget() noexcept;

    // Called by a load, for each network in the order of the supplicant's list.

    void listed(const ListedSsid& line);

    /// The network was loaded from the line of the last listed(). Where that line has no usable id, the
    /// network's id may not be used.
    void loaded(WifiNetwork& network, const KeyState& key);

    // Called after each command that changed the supplicant's networks.

    /// The network was created with the id that it has in memory.
    /// @param ssid  not null; where it is empty, the network in memory has no SSID
    void added(WifiNetwork& network, const char* ssid);

    void removed(const WifiNetwork& network);

    /// A field was sent to the supplicant, which took it or not.
    void written(const WifiNetwork& network, const char* key, const char* value, bool accepted);

    /// The supplicant wrote its file and read it again.
    /// @param everywhere  false when one of several adapters could not write its file
    void saved(bool everywhere);

    /// The supplicant read its file again without having written it.
    void takenBack();

    /// The next confirm() asks the supplicant in any case.
    void distrust() noexcept { m_isStale = true; }

    /// When ids are stale, asks the supplicant for its list and takes the new ids from it. To be called
    /// before a command that needs an id.
    /// @param iface  the adapter whose networks these are
    /// @return false when the supplicant did not answer: no id may be used
    bool confirm(WifiUtil& util, const char* iface);

    /// Does the same with a list that was read already.
    void confirm(const Lines& list);

    /// Whether the id that the network has in memory may be used. False for a network that the supplicant
    /// does not list, and for one of several with the same SSID that cannot be distinguished.
    bool isKnown(const WifiNetwork& network) const;

private:
    struct Entry {
        std::string printed;             ///< its SSID in the supplicant
        std::optional<unsigned char> id; ///< none where it is not known or above 255
        WifiNetwork* network = nullptr;  ///< null for a network that is not in memory
        KeyState key = {};
    };

    // The supplicant's networks in its order, then those in memory that it does not list any more.
    using Entries = std::vector<Entry>;

    static Entries entriesOf(const Lines& list);
    bool keepsIds() const;
    bool hasNetworks() const;
    void take(Entries listed);
    Entry* counterpart(const Entry& entry, Entries& listed) const;

    Entries m_entries;
    bool m_isStale = false;
    bool m_isChanged = false; ///< whether networks were added or removed since the last save
};

} // namespace platwifi
