#pragma once

#include "Export.h"
#include "platform/PlatformUtil.h"

#include <cstdint>

class WifiNetwork;

/// The networks of the supplicant's configuration in memory, the last one added first, each SSID
/// once (compared byte for byte).
///
/// The list owns its networks and deletes them. A flag tells whether networks were added or removed
/// since the list was last declared valid, that is, since it agreed with the saved configuration;
/// changes inside a network do not touch it.
///
/// Any thread may call; every operation but getHead() takes the lock, which a thread may hold
/// already, however often. A network of the list, and its fields, may only be touched while holding
/// the lock. Nothing is thrown. SSIDs are NUL-terminated texts and stay the caller's.
class PLATWIFI_API WifiNetworkList {
public:
    /// An empty, valid list.
    WifiNetworkList();

    /// Waits for the lock and ends it together with all networks. Only the calling thread may hold
    /// it, however often; nobody may wait for it or come after.
    ~WifiNetworkList();

    WifiNetworkList(const WifiNetworkList&) = delete;
    WifiNetworkList& operator=(const WifiNetworkList&) = delete;

    /// Takes the lock, for a walk over the networks or for several operations in one.
    void lock();

    /// Gives back one lock() of the calling thread.
    void unlock();

    /// The first network, null when there is none; the others by WifiNetwork::getNext(). The caller
    /// holds the lock, from this call to the end of the walk.
    WifiNetwork* getHead() const;

    /// How many networks there are.
    unsigned int getCount() const;

    /// Whether a network has this SSID. Never so for a null or an empty one.
    bool containsNetwork(const char* ssid) const;

    /// Puts `network` in front and takes it over; the list is no longer valid.
    /// @return false for null and for an SSID that the list has: nothing changes, and the network
    ///         stays the caller's. An unset SSID is like no other.
    bool addNetworkToList(WifiNetwork* network);

    /// Deletes the network with this SSID, which may be that network's own text. The list is no
    /// longer valid, even when there was no such network.
    /// @return true, or false for a null or an empty SSID: nothing changes
    bool removeNetworkFromList(const char* ssid);

    /// Deletes all networks, if any; the list is no longer valid.
    /// @return true
    bool removeAllFromList();

    /// Whether nothing was added or removed since validateDatabase(), or since the beginning.
    bool isValid() const;

    /// Declares the list valid: it is as the supplicant's saved configuration.
    void validateDatabase();

    /// Declares the list changed.
    void invalidateDatabase();

private:
    std::uint32_t invalid = 0; ///< 1 when the list is not valid, else 0
    WifiNetwork* head = nullptr;
    mutable PlatformMutex mutex; ///< recursive; guards the above and every network of the list
};
