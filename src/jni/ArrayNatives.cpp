// Natives that return an array of strings.

#include "jni/Frame.h"
#include "jni/JavaArray.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/WifiUtil.h"

using namespace platwifi;

namespace {

constexpr unsigned char FOUND_NETWORKS = 32;

bool discover(const char* iface, ReplyLines& found) {
    WifiUtil* const util = WifiUtil::getInstance();
    return util && util->scanNetworks(iface) &&
           util->discoverNetworks(iface, found.data(), found.capacity(), &found.count);
}

} // namespace

PLATWIFI_NATIVE(jobjectArray, discoverNetworks0)(JNIEnv* environment, jclass, jstring iface) {
    const auto list = [environment](ErrorHandler*, const char* name) -> jobjectArray {
        ReplyLines found(FOUND_NETWORKS);
        return discover(name, found) ? newJavaArray(environment, found.data(), found.count)
                                     : nullptr;
    };
    return callNative(environment, list, iface);
}
