#include "process/OtherProcesses.h"

#include "platform/SharedMemory.h"
#include "process/Interrupt.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <algorithm>
#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr const char* TELLER = "--tell-other-processes";

/// The block that has the name, by what identifies a file to the system.
class NamedBlock {
public:
    NamedBlock() { m_exists = stat(BLOCK_PATH, &m_facts) == 0; }

    bool isOfAnotherUser() const { return m_exists && m_facts.st_uid != geteuid(); }

    // A line holds addresses, rights, offset, device and number of the file. In a container, another
    // file may have the same name.
    bool isMappedBy(const std::filesystem::path& process) const {
        std::ifstream maps(process / "maps");
        std::string skipped;
        std::string device;
        ino_t number = 0;
        while (m_exists && maps >> skipped >> skipped >> skipped >> device >> number) {
            if (number == m_facts.st_ino && device == deviceName())
                return true;
            std::getline(maps, skipped);
        }
        return false;
    }

private:
    std::string deviceName() const {
        char name[32];
        std::snprintf(name, sizeof name, "%02x:%02x", major(m_facts.st_dev), minor(m_facts.st_dev));
        return name;
    }

    struct stat m_facts {};
    bool m_exists;
};

bool isNumber(const std::string& name) {
    return std::all_of(name.begin(), name.end(),
                       [](unsigned char character) { return std::isdigit(character) != 0; });
}

// Whose memory cannot be looked at may share it.
bool othersMayShare() {
    return NamedBlock().isOfAnotherUser() || !sharersOfBlock().empty();
}

} // namespace

std::vector<pid_t> sharersOfBlock() {
    const NamedBlock block;
    std::vector<pid_t> sharers;
    std::error_code error;
    for (const auto& process : std::filesystem::directory_iterator("/proc", error)) {
        const std::string name = process.path().filename();
        if (isNumber(name) && std::stoi(name) != getpid() && block.isMappedBy(process.path()))
            sharers.push_back(std::stoi(name));
    }
    return sharers;
}

void leaveSharedBlock() {
    if (NamedBlock().isMappedBy("/proc/self") && !othersMayShare())
        platform::SharedMemory::unlink(platwifi::paths::BLOCK_NAME);
}

void tellOthers(char* const arguments[], int status) {
    if (!othersMayShare())
        return;
    const std::string ending = std::to_string(status);
    const char* const teller[] = {arguments[0], TELLER, ending.c_str(), nullptr};
    execv("/proc/self/exe", const_cast<char* const*>(teller));
}

bool isTeller(int count, char* const arguments[]) {
    return count == 3 && std::strcmp(arguments[1], TELLER) == 0;
}

// Signals are blocked by the program that this one was. It ends without detaching, which would take the
// block's name from those who share it.
void tell(char* const arguments[]) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    watchdog.sendRefreshSettingsSignal();
    const int status = std::atoi(arguments[2]);
    if (status < 0)
        Interrupt::endBy(-status);
    _exit(status);
}

} // namespace cli
