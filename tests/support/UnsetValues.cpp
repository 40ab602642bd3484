// For test programs in which the values of networks do not matter. The linker replaces
// WifiUtil::getNetworkValue() by this function: no field has a value, and a load runs 28 client
// commands a network less.

class WifiUtil;

bool noValue(WifiUtil*, const char*, unsigned char, const char*, char*,
             unsigned int) __asm__("__wrap__ZN8WifiUtil15getNetworkValueEPKchS1_Pcj");

bool noValue(WifiUtil* /*util*/, const char* /*iface*/, unsigned char /*id*/, const char* /*key*/,
             char* /*out*/, unsigned int /*outSize*/) {
    return false;
}
