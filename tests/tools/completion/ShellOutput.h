#pragma once

#include <map>
#include <string>

namespace test {

struct ShellOutput {
    std::string text; ///< standard output and standard error
    int status;
};

/// Runs a script by bash with these variables, the program under test first on the path.
ShellOutput outputOf(const std::string& script,
                     const std::map<std::string, std::string>& variables = {});

} // namespace test
