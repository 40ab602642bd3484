#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace test {

using CommandLine = std::vector<std::string>;

/// A program that answers command lines of the client.
struct ClientProgram {
    const char* name;
    const char* path;
};

constexpr ClientProgram HOST_CLIENT{"host's client", HOST_CLIENT_PROGRAM};
constexpr ClientProgram QUICK_CLIENT{"quick client", QUICK_CLIENT_PROGRAM};

/// What a command line came to.
struct Answer {
    std::string output; ///< standard output and standard error, as they arrived in one file
    int status;         ///< of waitpid()

    bool operator==(const Answer& other) const {
        return output == other.output && status == other.status;
    }
};

std::ostream& operator<<(std::ostream& out, const Answer& answer);

/// A running client.
class RunningClient {
public:
    /// @param before  a program and its arguments that start the client
    RunningClient(const ClientProgram& program, const CommandLine& line,
                  const CommandLine& before = {});

    /// Waits until the client has its own control socket, so that its handlers of signals are in place.
    void awaitSocket() const;

    /// The client's end of the control connection.
    std::string socket() const;

    void signal(int number) const;

    /// Waits until it has ended. To be called once.
    Answer answer() const;

private:
    pid_t m_id;
    std::string m_output;
};

/// Runs a client to its end.
Answer answerOf(const ClientProgram& program, const CommandLine& line);

} // namespace test
