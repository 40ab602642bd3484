#pragma once

#include "OtherProcess.h"

#include <string>

namespace bench {

/// Another process, which is measured from outside; see subject_program.cpp. The destructor ends it.
class Subject {
public:
    /// Starts it, and waits until it is ready.
    /// @param role     "settings", "loads" or "second"
    /// @param program  one that is made of subject_program.cpp
    explicit Subject(const char* role, const char* program = SUBJECT_PROGRAM);

    /// Makes it begin its work, and waits until it has begun. The next call makes "loads" load the settings
    /// 1,000 times more.
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
