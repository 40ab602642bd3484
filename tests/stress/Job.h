#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace stress {

/// The options of a program of this folder: `--count N`, `--seconds N`, `--seed N`, `--real N`. It
/// ends after the count or after the seconds, whichever comes first; 0 is no limit.
struct Job {
    std::string name;
    std::uint32_t count = 0;
    std::uint32_t seconds = 0;
    std::uint32_t seed = 0;
    std::uint32_t real = 0; ///< one command in so many is run by a real child; 0 for none

    /// Reads the command line and prints the seed, a random one by default. An unknown option ends
    /// the program with status 2. Must be called before there are other threads.
    static Job from(const char* name, std::uint32_t defaultCount, char* arguments[]);

    /// The same for a program that reads its command line itself.
    static Job named(const char* name, std::uint32_t seed);

    /// The part that is done, in percent.
    unsigned int percent(std::uint32_t done, std::uint32_t secondsGone) const;
};

/// Prints the message with the program's name and seed, and ends the program with status 1 without
/// waiting for its other threads.
[[noreturn]] void fail(const std::string& message);

/// Fails unless the condition holds.
inline void expect(bool condition, const char* message) {
    if (!condition)
        fail(message);
}

/// A source of random numbers for one thread. The same seed and number give the same numbers.
class Random {
public:
    Random(std::uint32_t seed, std::uint32_t number);

    std::uint32_t below(std::uint32_t end) { return static_cast<std::uint32_t>(m_engine() % end); }
    bool oneIn(std::uint32_t chances) { return below(chances) == 0; }

    template <typename Container>
    const auto& oneOf(const Container& container) {
        return container[below(static_cast<std::uint32_t>(std::size(container)))];
    }

private:
    std::mt19937 m_engine;
};

} // namespace stress
