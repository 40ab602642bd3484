#pragma once

#include "settings/WifiHostSettings.h"

#include <functional>
#include <string>

namespace test {

/// The steps of a native call, in a program that is linked with this:
///  - "+errors", "-errors": the error handler is made, is deleted
///  - "+home", "-home": the Java string "home" is converted, its characters are freed
///  - "+list", "-list", and the same for "state": a mutex behind lockSettings() is taken, is released,
///    inner times too
///  - "encipher", "decipher": the cipher runs; here it only copies its text
///  - any other word: noted by the test
/// Only steps of the thread that makes the call count.
class RecordedCall {
public:
    /// @param settings  whose mutexes are recorded
    explicit RecordedCall(WifiHostSettings& settings);
    ~RecordedCall();

    RecordedCall(const RecordedCall&) = delete;
    RecordedCall& operator=(const RecordedCall&) = delete;

    /// Runs `action` once, in the place of the first step of this name: right before it is noted. The
    /// action may throw if the step is "+..." of a string or a word of the test.
    static void at(const std::string& step, std::function<void()> action);

    /// Notes a word of the test as a step.
    static void note(const std::string& step);

    /// The steps of this call, separated by blanks. An exception passes through.
    static std::string stepsOf(const std::function<void()>& call);

    /// The steps of the last call, also if it ended by an exception.
    static const std::string& steps();
};

} // namespace test
