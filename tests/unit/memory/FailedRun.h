#pragma once

#include <cstddef>
#include <string>

namespace test {

enum class Outcome {
    NO_FAILURE, ///< the work made fewer allocations
    WORKS_ON,   ///< the work ended, and the process works
    ABORTED,    ///< the process ended by abort()
    WRONG,      ///< anything else
};

/// A process of its own in which one allocation fails.
class FailedRun {
public:
    /// @param n        the allocation that fails, counted from 1 at the beginning of `work`
    /// @param prepare  is called before `work`
    /// @param which    handed on to `work`
    FailedRun(int n, void (*prepare)(), void (*work)(std::size_t), std::size_t which);

    Outcome outcome() const { return m_outcome; }
    const std::string& what() const { return m_what; }

private:
    Outcome m_outcome = Outcome::WRONG;
    std::string m_what;
};

// Preparations.

void nothingYet(); ///< two networks in the supplicant
void loaded();     ///< and in memory
void edited();     ///< and changed, so that there is something to save

// Work in which an allocation fails.

void load(std::size_t which);
void save(std::size_t which);
void reload(std::size_t which);
void callNative(std::size_t which); ///< of NATIVES

/// The files in /tmp and in /dev/shm after another process has loaded and unloaded, one a line. The output
/// of a scan, which stays by design, is not listed.
std::string leftBehindTheNextProcess();

} // namespace test
