#include "Clients.h"

#include "support/Files.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace test {
namespace {

// Both programs are started under the same name, which appears in messages about options.
[[noreturn]] void execute(const char* path, const CommandLine& before, const CommandLine& line,
                          const std::string& outputPath) {
    CommandLine words = before;
    words.emplace_back(before.empty() ? "wpa_cli" : path);
    words.insert(words.end(), line.begin(), line.end());
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int output = open(outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    close(output);
    execvp(before.empty() ? path : arguments[0], arguments.data());
    _exit(126);
}

std::string newOutput() {
    static int number = 0;
    return "/tmp/client-output-" + std::to_string(++number);
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    return out << "status " << answer.status << " after: " << answer.output;
}

RunningClient::RunningClient(const ClientProgram& program, const CommandLine& line,
                             const CommandLine& before)
    : m_output(newOutput()) {
    m_id = fork();
    if (m_id == 0)
        execute(program.path, before, line, m_output);
    if (m_id == -1)
        throw std::runtime_error("cannot start a client");
}

void RunningClient::awaitSocket() const {
    while (!std::filesystem::exists(socket())) {
        siginfo_t end{};
        if (waitid(P_PID, static_cast<id_t>(m_id), &end, WEXITED | WNOHANG | WNOWAIT) != 0 ||
            end.si_pid != 0)
            throw std::runtime_error("the client ended without a question");
    }
}

std::string RunningClient::socket() const {
    return "/tmp/wpa_ctrl_" + std::to_string(m_id) + "-1";
}

void RunningClient::signal(int number) const {
    kill(m_id, number);
}

Answer RunningClient::answer() const {
    Answer answer{};
    if (waitpid(m_id, &answer.status, 0) != m_id)
        throw std::runtime_error("the client's status was lost");
    answer.output = contentOf(m_output);
    std::filesystem::remove(m_output);
    return answer;
}

Answer answerOf(const ClientProgram& program, const CommandLine& line) {
    return RunningClient(program, line).answer();
}

} // namespace test
