#pragma once

#include "OtherProcess.h"

#include <string>

namespace bench {

/// Another process, which is measured from outside; see subject_program.cpp. The destructor ends it.
class Subject {
public:
    /// Starts it, and waits until it is ready.
    /// @param role  "settings" or "second"
    explicit Subject(const char* role);

    /// Makes it begin its work, and waits until it has begun.
    void begin();

    /// The number of context switches of its threads so far.
    double switches() const;

    /// Its processor time so far, in seconds.
    double processorTime() const;

    /// A value of its memory use, such as "Rss", in bytes.
    double memory(const std::string& name) const;

private:
    OtherProcess m_process;
};

} // namespace bench
