#pragma once

#include <string>
#include <sys/types.h>

namespace test {

/// An interactive bash on a pseudoterminal, with the completion of the program. A function in place of the
/// program prints its arguments.
class InteractiveBash {
public:
    /// @param setUp  commands that bash runs before it loads the completion
    explicit InteractiveBash(const std::string& setUp = "");
    ~InteractiveBash();

    InteractiveBash(const InteractiveBash&) = delete;
    InteractiveBash& operator=(const InteractiveBash&) = delete;

    /// Types the keys and RETURN.
    /// @return the arguments of the program, each in angle brackets
    std::string argumentsAfter(const std::string& keys);

    /// Types the keys, and waits until the terminal shows this text, which the keys do not contain.
    /// @return false if bash ends, or prints nothing for five minutes, before that
    bool shows(const std::string& text, const std::string& keys);

private:
    void type(const std::string& keys) const;
    bool readUntil(const std::string& text);

    int m_terminal = -1;
    pid_t m_shell = -1;
    std::string m_output;
};

} // namespace test
