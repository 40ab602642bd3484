#pragma once

#include <optional>
#include <termios.h>

namespace cli {

/// The settings of standard input's terminal at the time of construction. Does nothing where standard
/// input is no terminal.
class TerminalState {
public:
    TerminalState() noexcept;

    /// Restores these settings.
    void restore() const noexcept;

    /// Sets the same settings without echo.
    void hideInput() const noexcept;

private:
    std::optional<termios> m_state;
};

/// Turns the echo of the terminal off while the object exists.
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
