#pragma once

#include "platform/FileDescriptor.h"
#include "support/StandIn.h"

#include <string>
#include <sys/types.h>

namespace test {

/// The end of a program, and its output.
struct Ending {
    int status = 0; ///< its exit status, or the negative number of the signal that ended it
    std::string out;
    std::string err;
};

constexpr int WRONG_USE = 2; ///< the exit status after a wrong argument

/// Values of Streams in place of a descriptor.
constexpr int CAPTURED = -1; ///< what the program writes is in its Ending; an input is empty
constexpr int CLOSED = -2;

/// The descriptors of a program's standard streams.
struct Streams {
    int in = CAPTURED;
    int out = CAPTURED;
    int err = CAPTURED;
};

/// A running program of this build. The destructor kills it.
class Program {
public:
    /// Starts the program in a session of its own. If its standard input is a terminal, that becomes
    /// the controlling terminal.
    explicit Program(const Arguments& arguments, Streams streams = {},
                     const char* path = PLATWIFI_PROGRAM);
    ~Program();

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Sends a signal, and waits until it is no longer pending.
    void signal(int signal) const;

    /// Waits until the program has ended.
    Ending end();

    /// Whether the program has ended. end() is still to be called.
    bool hasEnded() const;

    pid_t id() const { return m_id; }

private:
    pid_t m_id = -1;
    platform::FileDescriptor m_out;
    platform::FileDescriptor m_err;
};

/// A file without a name, with this content.
platform::FileDescriptor fileWith(const std::string& text);

/// Runs the program platwifi to its end.
Ending platwifi(const Arguments& arguments, const std::string& input = "");
Ending platwifi(const Arguments& arguments, Streams streams);

/// The same with a build in which a second of the library takes ten milliseconds.
Ending quickPlatwifi(const Arguments& arguments, Streams streams = {});

} // namespace test
