// The programs that the library runs; the supplicant's process and its pid file.

#include "Paths.h"
#include "checks/CheckFunctions.h"
#include "client/ClientReply.h"
#include "platform/BootProgram.h"
#include "supplicant/WifiUtil.h"
#include "values/Texts.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace cli {
namespace {

namespace fs = std::filesystem;

using platwifi::paths::CLIENT;
using platwifi::paths::PID_FILE;
using platwifi::paths::PROCESS_LISTER;

// The process lister prints the same for every interface.
constexpr const char* ANY_INTERFACE = "wlan0";

bool isExecutable(const std::string& path) {
    return faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

// `toInstall` is the next step if the program is missing.
Finding checkProgram(const char* fixedPath, const std::string& toInstall) {
    const std::string path = platform::locateProgram(fixedPath);
    std::error_code error;
    if (fs::is_regular_file(path, error) && isExecutable(path))
        return good(fs::canonical(path, error));
    if (!fs::is_regular_file(path, error))
        return bad("there is no program " + path, toInstall);
    return bad(path + " cannot be executed by this user", "allow it: chmod a+x " + path);
}

bool isGone(pid_t process) {
    return kill(process, 0) != 0 && errno == ESRCH;
}

} // namespace

Finding checkClient(const std::string&) {
    return checkProgram(CLIENT, "install wpa_supplicant's client (on Debian: apt-get install "
                                "wpasupplicant), or let PLATFORM_BOOT_DIR name the folder that has "
                                "wpa_cli and pidin");
}

Finding checkQuickClient(const std::string&) {
    const bool isQuick = beginsWith(clientVersion(), "platwifi quick client ");
    return good(isQuick ? "in use" : "not in use: commands go to the host's client");
}

Finding checkProcessLister(const std::string&) {
    return checkProgram(PROCESS_LISTER,
                        "it comes with platwifi: build or install that anew, or let "
                        "PLATFORM_BOOT_DIR name the folder that has wpa_cli and "
                        "pidin");
}

Finding checkProcess(const std::string& iface) {
    if (WifiUtil().isWifiEnabled(ANY_INTERFACE))
        return good("is running");
    return bad("wpa_supplicant is not running",
               "start it as root: wpa_supplicant -B -P /run/wpa_supplicant.pid -i " +
                   (iface.empty() ? ANY_INTERFACE : iface) +
                   " -c FILE, with a FILE like the example wpa_supplicant.conf in platwifi's "
                   "documentation");
}

Finding checkPidFile(const std::string&) {
    std::ifstream file(PID_FILE);
    if (!file)
        return good("none is left behind");
    pid_t process = 0;
    if (file >> process && process > 0 && !isGone(process))
        return good("names process " + std::to_string(process));
    return note(std::string(PID_FILE) + " was left behind by a supplicant that is gone: programs "
                                        "that only look for this file think that one is running",
                std::string("remove it as root: rm ") + PID_FILE);
}

} // namespace cli
