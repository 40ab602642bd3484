#include "supplicant/LeftoverFiles.h"

#include "Paths.h"
#include "platform/FolderClaim.h"
#include "supplicant/ClientCommand.h"
#include "supplicant/ResultTag.h"

#include <atomic>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

using platform::FolderClaim;

namespace platwifi {
namespace {

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

// The tag in a result file's name; invalid for any other name.
ResultTag tagIn(std::string_view name) noexcept {
    const std::size_t folder = std::strlen(paths::RESULT_FOLDER) + 1;
    for (const std::string_view prefix : command::RESULT_PREFIXES) {
        const std::string_view beginning = prefix.substr(folder);
        if (name.substr(0, beginning.size()) == beginning)
            return ResultTag(name.substr(beginning.size()));
    }
    return ResultTag("");
}

// A second name may have been given by another user, to have some other file of this user removed.
bool mayBeLeftover(int folder, const char* name) noexcept {
    struct stat facts {};
    return fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(facts.st_mode) &&
           facts.st_uid == geteuid() && facts.st_nlink == 1;
}

// A thread may begin to use the name at any time. So the order matters: claim the removal, look for
// a claim of use (see ResultClaim), then look at the file once more.
void removeUnused(int folder, const char* name, const ResultTag& tag) noexcept {
    const FolderClaim removal(paths::RESULT_FOLDER, tag.removalClaim());
    if (removal.isHeld() && !removal.sees(tag.useClaim()) && mayBeLeftover(folder, name))
        unlinkat(folder, name, 0);
}

} // namespace

void removeLeftoverFiles() noexcept {
    const std::unique_ptr<DIR, FolderCloser> folder(opendir(paths::RESULT_FOLDER));
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder.get())) {
        const ResultTag tag = tagIn(entry->d_name);
        if (tag.isValid() && mayBeLeftover(dirfd(folder.get()), entry->d_name))
            removeUnused(dirfd(folder.get()), entry->d_name, tag);
    }
}

void removeLeftoverFilesOnce() noexcept {
    static std::atomic<bool> done{false};
    if (!done.exchange(true))
        removeLeftoverFiles();
}

} // namespace platwifi
