#pragma once

#include "support/LoadedHost.h"

#include <map>
#include <string>

namespace test {

/// A supplicant with networks whose SSIDs contain characters that are special to a shell.
struct ListedHost : LoadedHost {
    ListedHost();
};

struct ShellOutput {
    std::string text; ///< standard output and standard error
    int status;
};

/// Runs a script by bash with these variables. The folder of the program under test is first on the path.
ShellOutput outputOf(const std::string& script,
                     const std::map<std::string, std::string>& variables = {});

/// Whether this program is on the path.
bool isInstalled(const std::string& program);

} // namespace test
