#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace bench {

/// Another process, which is measured from outside; see subject_program.cpp. The destructor ends it.
class Subject {
public:
    /// Starts it, and waits until it is ready.
    /// @param role  "settings" or "second"
    explicit Subject(const char* role);
    ~Subject();

    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    /// Makes it begin its work, and waits until it has begun.
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
