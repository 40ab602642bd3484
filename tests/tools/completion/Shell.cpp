#include "Shell.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>

namespace test {

// In the client's notation.
ListedHost::ListedHost() {
    answers({"home", "My Net", "$HOME", "Bob's \\\"Net\\\"", "back\\\\slash", "Caf\\xc3\\xa9",
             "bang!all", "a=b@c", "`id`;&|", "bad\\xff", "tilde~(x)*", "-dash", "end "});
}

ShellOutput outputOf(const std::string& script,
                     const std::map<std::string, std::string>& variables) {
    for (const auto& [name, value] : variables)
        setenv(name.c_str(), value.c_str(), 1);
    setenv("SCRIPT", script.c_str(), 1);
    setenv("PROGRAM_FOLDER", PROGRAM_FOLDER, 1);
    FILE* const pipe = popen("PATH=$PROGRAM_FOLDER:$PATH exec bash -c \"$SCRIPT\" 2>&1", "r");
    ShellOutput output{"", -1};
    if (!pipe)
        return output;
    std::array<char, 4096> piece{};
    while (const std::size_t size = fread(piece.data(), 1, piece.size(), pipe))
        output.text.append(piece.data(), size);
    output.status = WEXITSTATUS(pclose(pipe));
    return output;
}

bool isInstalled(const std::string& program) {
    return outputOf("command -v " + program).status == 0;
}

} // namespace test
