#pragma once

#include <string>
#include <vector>

namespace test {

using Arguments = std::vector<std::string>;

/// Replaces the client and the process lister by the stand-in during its lifetime, scripts the
/// answers and returns the calls. One that is made later replaces an earlier one until it ends.
class StandIn {
public:
    StandIn();
    ~StandIn();

    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    /// A rule under construction: the answer to one command line.
    class Answer {
    public:
        Answer& prints(const std::string& text) { return add({"print", text}); }
        Answer& printsError(const std::string& text) { return add({"error", text}); }
        Answer& printsFacts() { return add({"facts"}); }
        /// Makes a file that is not removed; %d in its path is the stand-in's process id.
        Answer& leaves(const std::string& path) { return add({"leave", path}); }
        Answer& exits(int status) { return add({"exit", std::to_string(status)}); }
        Answer& diesBy(int signal) { return add({"signal", std::to_string(signal)}); }
        /// Waits at the Checkpoint with this path.
        Answer& pausesAt(const std::string& path) { return add({"pause", path}); }
        Answer& hangs() { return add({"hang"}); }
        /// Begins the answer to the next call that matches the rule. The last answer is repeated.
        Answer& then() { return add({"then"}); }

    private:
        friend class StandIn;
        explicit Answer(const StandIn& standIn) : m_standIn(standIn) {}
        Answer& add(const Arguments& line);
        const StandIn& m_standIn;
    };

    /// A rule for a call with exactly these arguments after argv[0]. A "*" at the end matches any
    /// further arguments, so {"*"} matches every call. The first rule that matches answers; a call without a rule exits with status 99.
    Answer on(const Arguments& arguments);

    /// Every call so far, argv[0] included.
    std::vector<Arguments> calls() const;

    /// Removes all rules and calls.
    void reset();

    /// The boot directory. A test may put other programs into it.
    const std::string& folder() const { return m_folder; }

private:
    void append(const Arguments& line) const;

    std::string m_folder;
    std::string m_outerFolder; ///< of the stand-in that is replaced, or empty
};

} // namespace test
