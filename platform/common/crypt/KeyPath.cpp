#include "KeyPath.h"

#include "CryptError.h"
#include "platform/Environment.h"

namespace platform {
namespace {

std::string variable(const char* name) {
    const char* value = environmentValue(name);
    return value ? value : "";
}

bool isAbsolute(const std::string& path) {
    return path.compare(0, 1, "/") == 0;
}

} // namespace

std::string keyPath(uid_t user) {
    std::string file = variable("PLATFORM_KEY_FILE");
    if (!file.empty())
        return file;
    if (user == 0)
        return "/var/lib/platform/crypt.key";
    const std::string state = variable("XDG_STATE_HOME");
    if (isAbsolute(state))
        return state + "/platform/crypt.key";
    const std::string home = variable("HOME");
    if (isAbsolute(home))
        return home + "/.local/state/platform/crypt.key";
    throw CryptError("crypt.key-path",
                     "nothing tells where the key file is; set PLATFORM_KEY_FILE or HOME");
}

} // namespace platform
