#pragma once

#include <string>
#include <vector>

namespace cli {

/// The files whose paths begin with this text, in order, those in a folder only where the text names
/// it; a folder has "/" at its end. Hidden ones only where their dot is given. Names that a terminal
/// cannot show are left out.
std::vector<std::string> filesThatBeginWith(const std::string& path);

} // namespace cli
