#pragma once

#include <string>
#include <sys/types.h>

namespace test {

/// A bash on a terminal of its own, with the completion of the program, and with a function in the
/// program's place that shows its arguments. A key pressed is a byte written.
class InteractiveBash {
public:
    /// @param setUp  commands that come before the completion
    explicit InteractiveBash(const std::string& setUp = "");
    ~InteractiveBash();

    InteractiveBash(const InteractiveBash&) = delete;
    InteractiveBash& operator=(const InteractiveBash&) = delete;

    /// Types the keys and RETURN.
    /// @return what the program is called with: each argument in angle brackets
    std::string argumentsAfter(const std::string& keys);

    /// Types the keys, and waits until the terminal shows this text, which the keys do not hold.
    /// @return false where bash ends, or falls silent, before that
    bool shows(const std::string& text, const std::string& keys);

private:
    void type(const std::string& keys) const;
    bool readUntil(const std::string& text);

    int m_terminal = -1;
    pid_t m_shell = -1;
    std::string m_output;
};

} // namespace test
