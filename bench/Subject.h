#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace bench {

/// Another process, which is measured from outside; see subject_program.cpp. The destructor ends it.
class Subject {
public:
    /// Starts it, and waits until it is ready.
    /// @param role     "settings", "loads" or "second"
    /// @param program  one that is made of subject_program.cpp
    explicit Subject(const char* role, const char* program = SUBJECT_PROGRAM);
    ~Subject();

    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

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
    void awaitLine(const std::string& expected) const;

    platform::FileDescriptor m_toIt;
    platform::FileDescriptor m_fromIt;
    pid_t m_id = -1;
};

} // namespace bench
