// The permissions of the supplicant's configuration file, which holds keys in plain text.

#include "checks/CheckFunctions.h"
#include "checks/Processes.h"
#include "client/ControlSocket.h"

#include <sys/stat.h>

namespace cli {
namespace {

// The file of the supplicant that serves the interface; if no arguments name that, the first file that
// those of a supplicant name. One that serves D-Bus alone has none.
std::string configurationFor(const std::string& iface) {
    std::string first;
    for (const WordList& command : supplicantsAmong(runningCommands())) {
        std::string file = optionOf(command, "-c");
        if (!file.empty() && optionOf(command, "-i") == iface)
            return file;
        if (first.empty())
            first = file;
    }
    return first;
}

} // namespace

// The supplicant creates the file anew at each save; its umask decides the permissions.
Finding checkConfiguration(const std::string& iface) {
    const std::string path = configurationFor(interfaceFor(iface));
    struct stat file {};
    if (path.empty() || path[0] != '/')
        return good("is not named by the supplicant's arguments");
    if (stat(path.c_str(), &file) != 0)
        return good(path + " is closed to this user");
    if ((file.st_mode & S_IROTH) == 0)
        return good(path + " is closed to other users");
    return note(path + " can be read by every user, and holds keys in plain",
                "start the supplicant with umask 077, as it makes the file anew at each save; then "
                "close it as root: chmod 600 " +
                    path);
}

} // namespace cli
