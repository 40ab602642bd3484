#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace test {

/// How a shell is started: interactive, with the completion of the program, and with a function in place of the
/// program that prints its arguments.
struct ShellStart {
    std::vector<std::string> command;
    std::string settings; ///< path of the file that it reads first
    std::string text;     ///< what is written there
};

/// @param setUp  commands that bash runs before it loads the completion
ShellStart bash(const std::string& setUp = "");

/// The completion is in a folder of fpath.
ShellStart zsh();

/// A shell on a pseudoterminal.
class InteractiveShell {
public:
    explicit InteractiveShell(const ShellStart& start);
    ~InteractiveShell();

    InteractiveShell(const InteractiveShell&) = delete;
    InteractiveShell& operator=(const InteractiveShell&) = delete;

    /// Types the keys and RETURN, and waits for the next prompt.
    /// @return the arguments of the program, each in angle brackets
    std::string argumentsAfter(const std::string& keys);

    /// Types the keys, and waits until the terminal shows this text, which the keys do not contain.
    /// @return false if the shell ends, or prints nothing for five minutes, before that
    bool shows(const std::string& text, const std::string& keys);

private:
    void type(const std::string& keys) const;
    bool readUntil(const std::string& text);

    int m_terminal = -1;
    pid_t m_shell = -1;
    std::string m_output;
};

} // namespace test
