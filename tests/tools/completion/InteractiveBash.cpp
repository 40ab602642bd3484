#include "InteractiveBash.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace test {
namespace {

constexpr int READ_TIMEOUT = 300000; // ms
constexpr const char* SETTINGS = "/tmp/interactive-bash";

// Bash calls this function in place of the program; the completion looks for the program on the path.
constexpr char FUNCTION[] = R"(
platwifi() { printf 'called:'; printf ' <%s>' "$@"; printf ' :done\n'; }
bind 'set bell-style none' 'set show-all-if-ambiguous on' 'set page-completions off'
bind 'set enable-bracketed-paste off'
)";

[[noreturn]] void startBash() {
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TERM", "dumb", 1);
    setenv("INPUTRC", "/dev/null", 1);
    setenv("HISTFILE", "", 1);
    const std::string path = std::string(PROGRAM_FOLDER) + ":" + getenv("PATH");
    setenv("PATH", path.c_str(), 1);
    execlp("bash", "bash", "--noprofile", "--rcfile", SETTINGS, "-i", nullptr);
    _exit(127);
}

} // namespace

InteractiveBash::InteractiveBash(const std::string& setUp) {
    std::ofstream(SETTINGS) << "PS1='ready> '\n"
                            << setUp << "\n. '" << CLI_SOURCES << "/completion/completion.bash'\n"
                            << FUNCTION;
    const winsize size{24, 250, 0, 0};
    m_shell = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_shell < 0)
        throw std::runtime_error("no terminal");
    if (m_shell == 0)
        startBash();
    if (!readUntil("ready> "))
        throw std::runtime_error("bash shows no prompt: " + m_output);
}

InteractiveBash::~InteractiveBash() {
    close(m_terminal);
    kill(m_shell, SIGKILL);
    waitpid(m_shell, nullptr, 0);
}

std::string InteractiveBash::argumentsAfter(const std::string& keys) {
    m_output.clear();
    type(keys + '\r');
    if (!readUntil(" :done"))
        return "(bash shows: " + m_output + ")";
    const std::size_t start = m_output.rfind("called: ") + 8;
    return m_output.substr(start, m_output.rfind(" :done") - start);
}

bool InteractiveBash::shows(const std::string& text, const std::string& keys) {
    m_output.clear();
    type(keys);
    return readUntil(text);
}

void InteractiveBash::type(const std::string& keys) const {
    if (write(m_terminal, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
        throw std::runtime_error("the terminal takes no keys");
}

bool InteractiveBash::readUntil(const std::string& text) {
    pollfd input{m_terminal, POLLIN, 0};
    std::array<char, 4096> piece{};
    while (m_output.find(text) == std::string::npos) {
        if (poll(&input, 1, READ_TIMEOUT) != 1)
            return false;
        const ssize_t size = read(m_terminal, piece.data(), piece.size());
        if (size <= 0)
            return false;
        m_output.append(piece.data(), static_cast<std::size_t>(size));
    }
    return true;
}

} // namespace test
