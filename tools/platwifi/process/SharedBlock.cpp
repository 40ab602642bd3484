#include "process/SharedBlock.h"

#include "platform/SharedMemory.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace cli {
namespace {

/// The block that has the name now, identified by device and inode.
class NamedBlock {
public:
    NamedBlock() { m_exists = stat(BLOCK_PATH, &m_status) == 0; }

    bool isOfAnotherUser() const { return m_exists && m_status.st_uid != geteuid(); }

    // A line holds addresses, permissions, offset, device, inode and path. The path does not identify
    // the block: in a container, another file may have it.
    bool isMappedBy(const std::filesystem::path& process) const {
        std::ifstream maps(process / "maps");
        std::string skipped;
        std::string device;
        ino_t inode = 0;
        while (m_exists && maps >> skipped >> skipped >> skipped >> device >> inode) {
            if (inode == m_status.st_ino && device == deviceName())
                return true;
            std::getline(maps, skipped);
        }
        return false;
    }

private:
    std::string deviceName() const {
        char name[32];
        std::snprintf(name, sizeof name, "%02x:%02x", major(m_status.st_dev),
                      minor(m_status.st_dev));
        return name;
    }

    struct stat m_status {};
    bool m_exists;
};

bool isNumber(const std::string& name) {
    return std::all_of(name.begin(), name.end(),
                       [](unsigned char character) { return std::isdigit(character) != 0; });
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

// The maps of another user's process cannot be read.
bool isBlockShared() {
    return NamedBlock().isOfAnotherUser() || !sharersOfBlock().empty();
}

void leaveSharedBlock() {
    if (NamedBlock().isMappedBy("/proc/self") && !isBlockShared())
        platform::SharedMemory::unlink(platwifi::paths::BLOCK_NAME);
}

} // namespace cli
