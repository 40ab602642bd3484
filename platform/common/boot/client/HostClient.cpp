#include "HostClient.h"

#include "OwnProgram.h"

#include <unistd.h>

namespace client {
namespace {

constexpr const char* PLACES[] = {
    "/usr/sbin/wpa_cli", "/sbin/wpa_cli",           "/usr/bin/wpa_cli",
    "/bin/wpa_cli",      "/usr/local/sbin/wpa_cli", "/usr/local/bin/wpa_cli",
};

} // namespace

void runHostClient(const Arguments& arguments) noexcept {
    for (const char* const place : PLACES) {
        if (!mayBeThisProgram(place))
            execv(place, arguments.get());
    }
}

} // namespace client
