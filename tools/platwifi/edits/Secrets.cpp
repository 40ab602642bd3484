#include "edits/Secrets.h"

#include "platform/Crypt.h"
#include "platform/FileDescriptor.h"
#include "process/TerminalState.h"
#include "values/Failure.h"
#include "values/Lines.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <sys/stat.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr std::size_t MAX_LINE = 1024;

// Reads a single byte, so that the next lines of standard input are left for the next secrets.
// @return false at the end of the file
bool readByte(int file, char& byte, const std::string& from) {
    const ssize_t size = read(file, &byte, 1);
    if (size < 0)
        throw Failure("cannot read " + from + ": " + std::strerror(errno) + "; name another file");
    return size == 1;
}

std::string readLine(int file, const std::string& from, const Cancellation& cancellation) {
    std::string line;
    char byte = 0;
    for (cancellation.waitForInput(file); readByte(file, byte, from) && byte != '\n';
         cancellation.waitForInput(file)) {
        if (line.size() == MAX_LINE)
            throw Failure("the first line of " + from + " is too long for a secret");
        line += byte;
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    if (line.find('\0') != std::string::npos)
        throw Failure(from + " holds no text");
    return line;
}

/// Asks for a secret if standard input is a terminal. The terminal does not echo the end of the line
/// either, so the prompt writes one.
class Prompt {
public:
    explicit Prompt(const std::string& name) : m_isShown(isatty(STDIN_FILENO) != 0) {
        if (m_isShown)
            std::cerr << name << ": " << std::flush;
    }
    ~Prompt() {
        if (m_isShown)
            std::cerr << '\n';
    }
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;

private:
    const bool m_isShown;
    const HiddenInput m_hidden; // the echo is off before the prompt is shown
};

std::string readInput(const std::string& name, const Cancellation& cancellation) {
    const Prompt prompt(name);
    return readLine(STDIN_FILENO, "standard input", cancellation);
}

std::string fromInput(const std::string& name, const Cancellation& cancellation) {
    std::string line = readInput(name, cancellation);
    if (line.empty())
        throw Failure("there is no " + name + " on standard input; write it there");
    return line;
}

std::string fromFile(const std::string& name, const std::string& path,
                     const Cancellation& cancellation) {
    const platform::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen())
        throw Failure("cannot read " + path + ": " + std::strerror(errno) + "; name another file");
    std::string line = readLine(file.number(), path, cancellation);
    if (line.empty())
        throw Failure("there is no " + name + " in the first line of " + path + "; write it there");
    return line;
}

} // namespace

std::string readSecret(const std::string& name, const std::string& source,
                       const Cancellation& cancellation) {
    if (source.empty())
        return "";
    if (source == "-")
        return fromInput(name, cancellation);
    if (source[0] == '@')
        return fromFile(name, source.substr(1), cancellation);
    throw WrongUse(name + " is a secret, and every user can see a command line: " + name +
                   "=- reads it from standard input, " + name + "=@FILE from a file");
}

// The secret stays in this process, so no key file is needed.
std::string enciphered(const std::string& secret) {
    if (secret.empty())
        return "";
    ErrorHandler errors;
    char* result = nullptr;
    const bool isDone = Crypt::encryptForThisProcess(&errors, secret.c_str(), &result) == 0;
    std::string text = takeOwnership(result);
    if (!isDone)
        throw Failure(errors.savedError() ? errors.savedError()->text()
                                          : "the secret cannot be enciphered");
    return text;
}

} // namespace cli
