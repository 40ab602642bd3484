#pragma once

#include "Export.h"
#include "platform/PlatformUtil.h"

#include <chrono>
#include <cstdint>

class WifiNetwork;

/// The networks of the supplicant's configuration in memory. A network is added in front. No two networks
/// have the same SSID, compared byte for byte.
///
/// The list owns its networks and deletes them. It is valid as long as it has the networks of the saved
/// configuration: adding and removing a network makes it invalid, a changed field does not.
///
/// Any thread may call. Every operation but getHead() takes the list's lock, which is recursive. A network
/// of the list, and its fields, may only be used while holding that lock. Nothing is thrown. SSIDs are
/// NUL-terminated texts, which the caller owns.
class PLATWIFI_API WifiNetworkList {
public:
    /// An empty, valid list.
    WifiNetworkList();

    /// Deletes all networks and the lock. The calling thread may hold the lock; no other thread may use the
    /// list any more.
    ~WifiNetworkList();

    WifiNetworkList(const WifiNetworkList&) = delete;
    WifiNetworkList& operator=(const WifiNetworkList&) = delete;

    /// Takes the lock: for a walk over the networks, or to make several operations one.
    void lock();

    /// Takes the lock as lock() does, if that is possible before `deadline`. For the library itself.
    /// @return whether the calling thread holds the lock
    PLATWIFI_INTERNAL bool lockUntil(std::chrono::steady_clock::time_point deadline);

    /// Releases one lock() of the calling thread.
    void unlock();

    /// The first network; null when there is none. WifiNetwork::getNext() gives the others. The caller holds
    /// the lock from this call to the end of the walk.
    WifiNetwork* getHead() const;

    /// How many networks there are.
    unsigned int getCount() const;

    /// Whether a network has this SSID. False for a null or an empty SSID.
    bool containsNetwork(const char* ssid) const;

    /// Adds `network` in front, and owns it from then on. The list becomes invalid.
    /// @return true; false for null, and where the list has a network with this SSID: nothing changes then,
    ///         and the caller still owns the network. An unset SSID equals no other.
    bool addNetworkToList(WifiNetwork* network);

    /// Deletes the network with this SSID; `ssid` may be that network's own text. The list becomes invalid,
    /// also when there is no such network.
    /// @return true; false for a null or an empty SSID, which changes nothing
    bool removeNetworkFromList(const char* ssid);

    /// Deletes all networks. The list becomes invalid, also when it was empty.
    /// @return true
    bool removeAllFromList();

    /// Whether the list is valid: it was not invalidated since validateDatabase(), or since it was made.
    bool isValid() const;

    /// Makes the list valid: it has the networks of the supplicant's saved configuration.
    void validateDatabase();

    /// Makes the list invalid.
    void invalidateDatabase();

private:
    std::uint32_t invalid = 0; ///< 1 when the list is not valid, else 0
    WifiNetwork* head = nullptr;
    mutable PlatformMutex mutex; ///< recursive; guards the above and every network of the list
};
