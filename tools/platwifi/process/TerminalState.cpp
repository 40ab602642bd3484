#include "process/TerminalState.h"

#include <unistd.h>

namespace cli {

TerminalState::TerminalState() noexcept {
    termios state{};
    if (tcgetattr(STDIN_FILENO, &state) == 0)
        m_state = state;
}

void TerminalState::restore() const noexcept {
    if (m_state)
        tcsetattr(STDIN_FILENO, TCSANOW, &*m_state);
}

void TerminalState::hideInput() const noexcept {
    if (!m_state)
        return;
    termios hidden = *m_state;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
}

} // namespace cli
