#include "InteractiveShell.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace test {
namespace {

constexpr int READ_TIMEOUT = 300000; // ms
constexpr const char* PROMPT = "ready> ";
constexpr const char* CALLED = "called: ";
constexpr const char* DONE = " :done";

constexpr const char* BASH_SETTINGS = "/tmp/interactive-bash";
constexpr const char* ZSH_FOLDER = "/tmp/interactive-zsh";

constexpr char SET_PROMPT[] = "PS1='ready> '\n";

// The shell calls this function in place of the program; the completion looks for the program on the path.
constexpr char FUNCTION[] =
    "platwifi() { printf 'called:'; printf ' <%s>' \"$@\"; printf ' :done\\n'; }\n";

constexpr char BASH_KEYS[] = R"(
bind 'set bell-style none' 'set show-all-if-ambiguous on' 'set page-completions off'
bind 'set enable-bracketed-paste off'
)";

constexpr char ZSH_COMPLETION[] = R"(
unset zle_bracketed_paste
unsetopt BEEP
fpath=($ZDOTDIR $fpath)
autoload -Uz compinit
compinit -u -D
)";

[[noreturn]] void become(const ShellStart& start) {
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TERM", "dumb", 1);
    setenv("INPUTRC", "/dev/null", 1);
    setenv("HISTFILE", "", 1);
    setenv("ZDOTDIR", ZSH_FOLDER, 1);
    const std::string path = std::string(PROGRAM_FOLDER) + ":" + getenv("PATH");
    setenv("PATH", path.c_str(), 1);
    std::vector<char*> words;
    for (const std::string& word : start.command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(127);
}

} // namespace

ShellStart bash(const std::string& setUp) {
    return {{"bash", "--noprofile", "--rcfile", BASH_SETTINGS, "-i"},
            BASH_SETTINGS,
            SET_PROMPT + setUp + "\n. '" CLI_SOURCES "/completion/completion.bash'\n" + FUNCTION +
                BASH_KEYS};
}

ShellStart zsh() {
    const std::string folder = ZSH_FOLDER;
    std::filesystem::remove_all(folder); // of the test before
    std::filesystem::create_directory(folder);
    std::filesystem::create_symlink(CLI_SOURCES "/completion/completion.zsh",
                                    folder + "/_platwifi");
    return {{"zsh", "-d", "-i"},
            folder + "/.zshrc",
            std::string(SET_PROMPT) + ZSH_COMPLETION + FUNCTION};
}

InteractiveShell::InteractiveShell(const ShellStart& start) {
    std::ofstream(start.settings) << start.text;
    const winsize size{24, 250, 0, 0};
    m_shell = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_shell < 0)
        throw std::runtime_error("no terminal");
    if (m_shell == 0)
        become(start);
    if (!readUntil(PROMPT))
        throw std::runtime_error("the shell shows no prompt: " + m_output);
}

InteractiveShell::~InteractiveShell() {
    close(m_terminal);
    kill(m_shell, SIGKILL);
    waitpid(m_shell, nullptr, 0);
}

std::string InteractiveShell::argumentsAfter(const std::string& keys) {
    m_output.clear();
    type(keys + '\r');
    if (!readUntil(DONE))
        return "(the shell shows: " + m_output + ")";
    const std::size_t end = m_output.rfind(DONE);
    const std::size_t start = m_output.rfind(CALLED, end) + std::strlen(CALLED);
    const std::string arguments = m_output.substr(start, end - start);
    m_output.erase(0, end);
    return readUntil(PROMPT) ? arguments : "(the shell shows no prompt: " + m_output + ")";
}

bool InteractiveShell::shows(const std::string& text, const std::string& keys) {
    m_output.clear();
    type(keys);
    return readUntil(text);
}

void InteractiveShell::type(const std::string& keys) const {
    if (write(m_terminal, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
        throw std::runtime_error("the terminal takes no keys");
}

bool InteractiveShell::readUntil(const std::string& text) {
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
