#include "model/WifiNetworkList.h"

#include "model/NetworkFields.h"
#include "model/NetworkFunctions.h"
#include "platform/MutexGuard.h"

using namespace platwifi;

namespace {

bool isEmpty(const char* text) {
    return !text || *text == '\0';
}

void removeFirst(WifiNetwork*& head, const char* ssid) {
    WifiNetwork* previous = nullptr;
    WifiNetwork* network = head;
    while (network && !hasSsid(network, ssid)) {
        previous = network;
        network = network->getNext();
    }
    if (!network)
        return;
    if (previous)
        previous->setNext(network->getNext());
    else
        head = network->getNext();
    delete network;
}

void removeAll(WifiNetwork*& head) {
    while (WifiNetwork* const network = head) {
        head = network->getNext();
        delete network;
    }
}

} // namespace

WifiNetworkList::WifiNetworkList() {
    PlatformUtil::createMutex(&mutex);
}

// The lock is destroyed while locked, so that no thread can take it in between.
WifiNetworkList::~WifiNetworkList() {
    lock();
    removeAll(head);
    invalid = 0;
    PlatformUtil::destroyMutex(&mutex);
}

void WifiNetworkList::lock() {
    PlatformUtil::lockMutex(&mutex);
}

bool WifiNetworkList::lockUntil(std::chrono::steady_clock::time_point deadline) {
    return PlatformUtil::lockMutexUntil(&mutex, deadline) == 0;
}

void WifiNetworkList::unlock() {
    PlatformUtil::unlockMutex(&mutex);
}

WifiNetwork* WifiNetworkList::getHead() const {
    return head;
}

unsigned int WifiNetworkList::getCount() const {
    const MutexGuard guard(mutex);
    unsigned int count = 0;
    for (const WifiNetwork* network = head; network; network = network->getNext())
        ++count;
    return count;
}

bool WifiNetworkList::containsNetwork(const char* ssid) const {
    const MutexGuard guard(mutex);
    return !isEmpty(ssid) && NetworkFields::find(head, ssid);
}

// containsNetwork() would not do: it never finds an empty SSID, of which there may be only one, too.
bool WifiNetworkList::addNetworkToList(WifiNetwork* network) {
    const MutexGuard guard(mutex);
    if (!network || NetworkFields::find(head, network->getSsid()))
        return false;
    network->setNext(head);
    head = network;
    invalidateDatabase();
    return true;
}

bool WifiNetworkList::removeNetworkFromList(const char* ssid) {
    const MutexGuard guard(mutex);
    if (isEmpty(ssid))
        return false;
    removeFirst(head, ssid);
    invalidateDatabase(); // also when there was none: memory did not agree with what the caller expected
    return true;
}

bool WifiNetworkList::removeAllFromList() {
    const MutexGuard guard(mutex);
    removeAll(head);
    invalidateDatabase();
    return true;
}

bool WifiNetworkList::isValid() const {
    const MutexGuard guard(mutex);
    return invalid == 0;
}

void WifiNetworkList::validateDatabase() {
    const MutexGuard guard(mutex);
    invalid = 0;
}

void WifiNetworkList::invalidateDatabase() {
    const MutexGuard guard(mutex);
    invalid = 1;
}
