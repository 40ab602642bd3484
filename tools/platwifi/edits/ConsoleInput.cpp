#include "edits/ConsoleInput.h"

#include "edits/Secrets.h"
#include "values/Failure.h"

#include <iostream>
#include <unistd.h>

namespace cli {
namespace {

constexpr std::size_t MAX_ANSWER = 255;

} // namespace

bool ConsoleInput::canAsk() const {
    return isatty(STDIN_FILENO) != 0;
}

// The terminal gives whole lines. Byte by byte, so that the next line stays for the next question.
std::string ConsoleInput::answerTo(const std::string& name) const {
    std::cerr << name << ": " << std::flush;
    std::string answer;
    char byte = 0;
    for (m_cancellation.waitForInput(STDIN_FILENO);
         read(STDIN_FILENO, &byte, 1) == 1 && byte != '\n';
         m_cancellation.waitForInput(STDIN_FILENO)) {
        if (answer.size() < MAX_ANSWER)
            answer += byte;
    }
    if (answer.empty())
        throw Failure("there is no " + name + "; write it there, or as " + name + "=VALUE");
    return answer;
}

std::string ConsoleInput::wayToGive(const std::string& /*name*/, const std::string& example) const {
    return example;
}

std::string ConsoleInput::secretOf(const std::string& name, const std::string& source) const {
    return readSecret(name, source, m_cancellation);
}

} // namespace cli
