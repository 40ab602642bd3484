#include "Connection.h"

#include "common/boot/Output.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <wpa_ctrl.h>

using boot::output;

namespace client {
namespace {

constexpr const char* CONTROL_FOLDER = "/var/run/wpa_supplicant";

constexpr int FAILED = 255;
constexpr int TIMED_OUT = 254;

bool isInterface(DIR* folder, const char* name) noexcept {
    constexpr char P2P_DEVICE[] = "p2p-dev-"; // it cannot connect to an access point
    struct stat status {};
    return strncmp(name, P2P_DEVICE, sizeof(P2P_DEVICE) - 1) != 0 &&
           fstatat(dirfd(folder), name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISSOCK(status.st_mode);
}

// With a path that does not fit, the library would fail as well, but leave its own socket behind.
wpa_ctrl* open(const char* iface) noexcept {
    char path[sizeof(sockaddr_un::sun_path)];
    const int length = snprintf(path, sizeof(path), "%s/%s", CONTROL_FOLDER, iface);
    return length < static_cast<int>(sizeof(path)) ? wpa_ctrl_open(path) : nullptr;
}

wpa_ctrl* openSelected(const char* iface) noexcept {
    output.add("Selected interface '");
    output.add(iface);
    output.add("'\n");
    return open(iface);
}

wpa_ctrl* openFirst() noexcept {
    DIR* const folder = opendir(CONTROL_FOLDER);
    if (!folder)
        return nullptr;
    const dirent* entry = readdir(folder);
    while (entry && !isInterface(folder, entry->d_name))
        entry = readdir(folder);
    wpa_ctrl* const control = entry ? openSelected(entry->d_name) : nullptr;
    closedir(folder);
    return control;
}

// A message of the supplicant that arrives before the reply.
void printMessage(char* message, size_t length) {
    output.add(message, strnlen(message, length));
    output.add("\n");
}

int reportNoReply(const Request& request, const char* reason, int status) noexcept {
    output.add("'");
    output.add(request.text(), request.length());
    output.add(reason);
    return request.alwaysSucceeds() ? 0 : status;
}

} // namespace

Connection::Connection(const char* iface) noexcept : m_control(iface ? open(iface) : openFirst()) {}

Connection::~Connection() {
    if (m_control)
        wpa_ctrl_close(m_control);
}

int Connection::ask(const Request& request) const noexcept {
    constexpr int LATE = -2;
    char reply[MESSAGE_SIZE];
    size_t length = sizeof(reply) - 1;
    output.add(request.heading());
    const int result =
        wpa_ctrl_request(m_control, request.text(), request.length(), reply, &length, printMessage);
    if (result == LATE)
        return reportNoReply(request, "' command timed out.\n", TIMED_OUT);
    if (result < 0)
        return reportNoReply(request, "' command failed.\n", FAILED);
    output.add(reply, strnlen(reply, length)); // a NUL ends it, as in the host's client
    return 0;
}

} // namespace client
