#pragma once

#include "platform/FileDescriptor.h"
#include "support/StandIn.h"

#include <string>
#include <sys/types.h>

namespace test {

/// How a program has ended, and what it has written.
struct Ending {
    int status = 0; ///< its exit status, or the negative number of the signal that ended it
    std::string out;
    std::string err;
};

/// A standard stream of a program that is nobody's business.
constexpr int CAPTURED = -1;
constexpr int CLOSED = -2;

/// What a program gets. An input that is captured is empty.
struct Streams {
    int in = CAPTURED;
    int out = CAPTURED;
    int err = CAPTURED;
};

/// A program of this build while it runs.
class Program {
public:
    /// Starts the command line in a session of its own; a terminal as its standard input is that of
    /// the session.
    explicit Program(const Arguments& arguments, Streams streams = {},
                     const char* path = PLATWIFI_PROGRAM);
    ~Program();

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Sends it, and waits until the program has taken it.
    void signal(int signal) const;

    /// Waits until it has ended.
    Ending end();

    /// Whether it has ended, as end() will tell.
    bool hasEnded() const;

    pid_t id() const { return m_id; }

private:
    pid_t m_id = -1;
    platform::FileDescriptor m_out;
    platform::FileDescriptor m_err;
};

/// A file without a name that holds this.
platform::FileDescriptor fileWith(const std::string& text);

/// Runs the command line to its end.
Ending platwifi(const Arguments& arguments, const std::string& input = "");
Ending platwifi(const Arguments& arguments, Streams streams);

/// The same with a build of it in which the library's seconds pass in ten milliseconds each.
Ending quickPlatwifi(const Arguments& arguments, Streams streams = {});

} // namespace test
