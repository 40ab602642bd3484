#include "OtherProcesses.h"

#include "Failure.h"
#include "platform/SharedMemory.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr const char* BLOCK_NAME = "/wifi_shmem";
constexpr const char* TELLER = "--tell-other-processes";

// As /proc/PID/maps tells the block: by device and inode, since the path there is no name in the process
// that has made it. Of a block that has lost its name nobody finds the users any more.
std::string markOfBlock() {
    struct stat block {};
    if (lstat(BLOCK_PATH, &block) != 0)
        return "";
    char mark[64];
    std::snprintf(mark, sizeof mark, " %02x:%02x %ju ", major(block.st_dev), minor(block.st_dev),
                  static_cast<std::uintmax_t>(block.st_ino));
    return mark;
}

bool hasBlockMapped(const std::filesystem::path& process) {
    const std::string mark = markOfBlock();
    std::ifstream maps(process / "maps");
    for (std::string line; !mark.empty() && std::getline(maps, line);) {
        if (line.find(mark) != std::string::npos)
            return true;
    }
    return false;
}

bool isNumber(const std::string& name) {
    return std::all_of(name.begin(), name.end(),
                       [](unsigned char character) { return std::isdigit(character) != 0; });
}

// Whose memory cannot be looked at may share it.
bool isOfAnotherUser() {
    struct stat block {};
    return stat(BLOCK_PATH, &block) == 0 && block.st_uid != geteuid();
}

bool othersMayShare() {
    return isOfAnotherUser() || !sharersOfBlock().empty();
}

} // namespace

std::vector<pid_t> sharersOfBlock() {
    std::vector<pid_t> sharers;
    std::error_code error;
    for (const auto& process : std::filesystem::directory_iterator("/proc", error)) {
        const std::string name = process.path().filename();
        if (isNumber(name) && std::stoi(name) != getpid() && hasBlockMapped(process.path()))
            sharers.push_back(std::stoi(name));
    }
    return sharers;
}

void leaveSharedBlock() {
    if (hasBlockMapped("/proc/self") && !othersMayShare())
        platform::SharedMemory::unlink(BLOCK_NAME);
}

void tellOthers(char* const arguments[]) {
    if (!othersMayShare())
        return;
    const char* const teller[] = {arguments[0], TELLER, nullptr};
    execv("/proc/self/exe", const_cast<char* const*>(teller));
}

bool isTeller(int count, char* const arguments[]) {
    return count == 2 && std::strcmp(arguments[1], TELLER) == 0;
}

// Ends without detaching, which would take the block's name from those who share it.
void tell() {
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    watchdog.sendRefreshSettingsSignal();
    _exit(DONE);
}

} // namespace cli
