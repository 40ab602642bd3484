// The control socket, through which the client reaches the supplicant.

#include "checks/CheckFunctions.h"
#include "client/ControlSocket.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr const char* CONFIGURATION_STEP =
    "put ctrl_interface=DIR=/run/wpa_supplicant GROUP=netdev into the supplicant's configuration, "
    "then restart it";

std::string groupName(gid_t group) {
    const struct group* const entry = getgrgid(group);
    return entry ? entry->gr_name : std::to_string(group);
}

std::string userName() {
    const struct passwd* const entry = getpwuid(geteuid());
    return entry ? entry->pw_name : "USER";
}

// A client searches and lists the folder, and writes to the socket.
bool groupMayUse(const struct stat& status) {
    const mode_t needed = S_ISDIR(status.st_mode) ? S_IRGRP | S_IXGRP : S_IWGRP;
    return status.st_gid != 0 && (status.st_mode & needed) == needed;
}

Finding closedToThisUser(const std::string& path, const struct stat& status) {
    if (!groupMayUse(status))
        return bad(path + " is closed to all but root",
                   std::string("run platwifi as root; or ") + CONFIGURATION_STEP);
    const std::string group = groupName(status.st_gid);
    return bad(path + " is closed to all but root and the group " + group,
               "add this user to the group, as root: usermod -aG " + group + " " + userName() +
                   ", then log in again; or run platwifi as root");
}

Finding checkFolder() {
    struct stat status {};
    if (stat(CONTROL_FOLDER, &status) != 0) {
        return bad(std::string("the supplicant has no control socket: there is no folder ") +
                       CONTROL_FOLDER,
                   CONFIGURATION_STEP);
    }
    if (faccessat(AT_FDCWD, CONTROL_FOLDER, R_OK | X_OK, AT_EACCESS) != 0)
        return closedToThisUser(CONTROL_FOLDER, status);
    return good(CONTROL_FOLDER);
}

} // namespace

Finding checkSocketOf(const std::string& iface) {
    Finding folder = checkFolder();
    if (folder.health == Health::BAD)
        return folder;
    const std::string path = controlSocketOf(iface);
    const int error = connectTo(path);
    struct stat status {};
    if (error == 0)
        return good(path);
    if (error == EACCES && stat(path.c_str(), &status) == 0)
        return closedToThisUser(path, status);
    if (error == ENOENT)
        return bad("the supplicant does not serve " + iface + ": there is no " + path,
                   "start it for this interface, or name another one with -i");
    if (error == ECONNREFUSED) {
        return bad("no process listens at " + path + ", which a dead supplicant has left behind",
                   "remove it as root: rm " + path +
                       ", and restart the supplicant if it is to serve " + iface);
    }
    return bad(path + " cannot be used: " + std::strerror(error), CONFIGURATION_STEP);
}

// The client always lists the interfaces through the first socket, also if another interface is named.
Finding checkControlSocket(const std::string& iface) {
    Finding folder = checkFolder();
    if (folder.health == Health::BAD)
        return folder;
    const std::string first = interfaceFor("");
    if (first.empty()) {
        return bad(std::string("there is no control socket in ") + CONTROL_FOLDER,
                   "start the supplicant with an interface, such as -i wlan0, and with "
                   "ctrl_interface in its configuration");
    }
    const Finding finding = checkSocketOf(first);
    const bool isDecided = iface.empty() || finding.health == Health::BAD;
    return isDecided ? finding : checkSocketOf(iface);
}

} // namespace cli
