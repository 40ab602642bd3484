#include "MissingWifiUtil.h"

class WifiUtil;

namespace test {
namespace {

bool isMissing = false;

} // namespace

// The linker puts this in the place of WifiUtil::getInstance(). That returns null only where there is no
// memory for the driver at its first use: too early for settings that are loaded.
WifiUtil* getInstance() __asm__("__wrap__ZN8WifiUtil11getInstanceEv");
WifiUtil* realInstance() __asm__("__real__ZN8WifiUtil11getInstanceEv");

WifiUtil* getInstance() {
    return isMissing ? nullptr : realInstance();
}

MissingWifiUtil::MissingWifiUtil() {
    isMissing = true;
}

MissingWifiUtil::~MissingWifiUtil() {
    isMissing = false;
}

} // namespace test
