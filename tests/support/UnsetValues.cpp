// For a test program that is not about what networks are configured with: none of them has a value, and
// a load is spared some 28 client commands a network. The linker puts this in the place of
// WifiUtil::getNetworkValue().

class WifiUtil;

bool noValue(WifiUtil*, const char*, unsigned char, const char*, char*,
             unsigned int) __asm__("__wrap__ZN8WifiUtil15getNetworkValueEPKchS1_Pcj");

bool noValue(WifiUtil* /*util*/, const char* /*iface*/, unsigned char /*id*/, const char* /*key*/,
             char* /*out*/, unsigned int /*outSize*/) {
    return false;
}
