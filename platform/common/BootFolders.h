#pragma once

#include <string>
#include <vector>

namespace platform {

/// The folders that may hold the boot directory of this build, in the order of the search: that of the build tree,
/// then the installed one. Empty where they cannot be known.
std::vector<std::string> bootFolders();

} // namespace platform
