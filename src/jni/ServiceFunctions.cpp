#include "jni/ServiceFunctions.h"

#include "supplicant/WifiUtil.h"

namespace {

void freeList(char** list, unsigned char capacity) {
    for (unsigned char i = 0; i < capacity; ++i)
        delete[] list[i];
    delete[] list;
}

} // namespace

int hashCACertificates(ErrorHandler* /*errors*/) {
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->hashCACertificates() ? 1 : 0;
}

int isWifiEnabled(ErrorHandler* /*errors*/, const char* iface) {
    WifiUtil* const util = WifiUtil::getInstance();
    return util ? util->isWifiEnabled(iface) : 0;
}

int discoverNetworks(ErrorHandler* /*errors*/, const char* iface, char*** listOut,
                     unsigned char capacity, unsigned char* count) {
    WifiUtil* const util = WifiUtil::getInstance();
    if (!util || !listOut || !count || !util->scanNetworks(iface))
        return 0;
    *listOut = new char* [capacity] {};
    if (util->discoverNetworks(iface, *listOut, capacity, count))
        return 1;
    freeList(*listOut, capacity);
    *listOut = nullptr;
    *count = 0;
    return 0;
}
