#pragma once

#include <optional>
#include <termios.h>

namespace cli {

/// How the terminal of standard input is set, where there is one, as it was when this was made.
class TerminalState {
public:
    TerminalState() noexcept;

    /// Puts it back.
    void restore() const noexcept;

    /// The same without what is typed being shown.
    void hideInput() const noexcept;

private:
    std::optional<termios> m_state;
};

/// While it lives, what is typed is not shown.
class HiddenInput {
public:
    HiddenInput() noexcept { m_before.hideInput(); }
    ~HiddenInput() { m_before.restore(); }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;

private:
    TerminalState m_before;
};

} // namespace cli
