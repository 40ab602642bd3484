#pragma once

#include <string>
#include <vector>

namespace test {

using Arguments = std::vector<std::string>;

/// Puts the stand-in in the place of the client and of the process lister for as long as this
/// object lives, scripts its answers and tells how it was called.
class StandIn {
public:
    StandIn();
    ~StandIn();

    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    /// A rule under construction: what one command line is answered with.
    class Answer {
    public:
        Answer& prints(const std::string& text) { return add({"print", text}); }
        Answer& printsError(const std::string& text) { return add({"error", text}); }
        Answer& printsFacts() { return add({"facts"}); }
        /// Makes a file that stays; %d in its path is the stand-in's process id.
        Answer& leaves(const std::string& path) { return add({"leave", path}); }
        Answer& exits(int status) { return add({"exit", std::to_string(status)}); }
        Answer& diesBy(int signal) { return add({"signal", std::to_string(signal)}); }
        /// Stands still at the Checkpoint of this path.
        Answer& pausesAt(const std::string& path) { return add({"pause", path}); }
        Answer& hangs() { return add({"hang"}); }
        /// What follows answers the next call of the same kind; the last answer repeats.
        Answer& then() { return add({"then"}); }

    private:
        friend class StandIn;
        explicit Answer(const StandIn& standIn) : m_standIn(standIn) {}
        Answer& add(const Arguments& line);
        const StandIn& m_standIn;
    };

    /// Answers a call with exactly these arguments after argv[0]; {"*"} takes every call that no
    /// earlier rule takes. A call without a rule exits 99.
    Answer on(const Arguments& arguments);

    /// Every call so far, argv[0] included.
    std::vector<Arguments> calls() const;

    /// Forgets rules and calls.
    void reset();

    /// The boot directory, to put something else in.
    const std::string& folder() const { return m_folder; }

private:
    void append(const Arguments& line) const;

    std::string m_folder;
};

} // namespace test
