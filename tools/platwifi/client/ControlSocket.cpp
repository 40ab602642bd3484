#include "client/ControlSocket.h"

#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/socket.h>
#include <sys/un.h>

namespace cli {

std::string controlSocketOf(const std::string& iface) {
    return std::string(CONTROL_FOLDER) + "/" + iface;
}

std::string interfaceFor(const std::string& iface) {
    if (!iface.empty())
        return iface;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(CONTROL_FOLDER, error)) {
        std::string name = entry.path().filename();
        if (entry.is_socket(error) && !isForWifiDirect(name))
            return name;
    }
    return "";
}

int connectTo(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return ENAMETOOLONG;
    std::memcpy(address.sun_path, path.data(), path.size());
    const platform::FileDescriptor client(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    return connect(client.number(), generic, sizeof address) == 0 ? 0 : errno;
}

bool isForWifiDirect(const std::string& iface) {
    return iface.compare(0, std::strlen("p2p-dev-"), "p2p-dev-") == 0;
}

} // namespace cli
