#include "process/ControlConnection.h"

#include <atomic>
#include <cstddef> // wpa_ctrl.h needs it
#include <cstdio>
#include <fcntl.h>
#include <mutex>
#include <sys/un.h>
#include <unistd.h>

#include <wpa_ctrl.h>

namespace cli {
namespace {

// The client library counts as well, and ends the names of its sockets with the number.
std::atomic<int> openedConnections{0};

} // namespace

// With a path that does not fit, the library would fail as well, but leave its own socket behind. Of two threads at the
// same time, it would give both sockets one name, and remove that of the first.
ControlConnection openConnection(const std::string& path) {
    if (path.size() >= sizeof(sockaddr_un::sun_path))
        return {nullptr, wpa_ctrl_close};
    static std::mutex mutex;
    const std::lock_guard<std::mutex> guard(mutex);
    ++openedConnections;
    ControlConnection connection(wpa_ctrl_open(path.c_str()), wpa_ctrl_close);
    if (connection)
        fcntl(wpa_ctrl_get_fd(connection.get()), F_SETFD, FD_CLOEXEC);
    return connection;
}

void removeConnectionSockets() noexcept {
    const int last = openedConnections;
    for (int number = 1; number <= last; ++number) {
        char path[64];
        std::snprintf(path, sizeof path, "/tmp/wpa_ctrl_%d-%d", static_cast<int>(getpid()), number);
        unlink(path);
    }
}

} // namespace cli
