#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace bench {

/// Another process that is looked at from outside: see subject_program.cpp. It ends with this object.
class Subject {
public:
    /// Starts it, and waits until it is ready.
    /// @param role  "settings" or "second"
    explicit Subject(const char* role);
    ~Subject();

    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    /// Has it begin, and waits until it has.
    void begin();

    /// How often its threads have left a processor, so far.
    double switches() const;

    /// How many seconds of a processor it has taken, so far.
    double processorTime() const;

    /// A line of its memory's account, in bytes: "Rss", say.
    double memory(const std::string& name) const;

private:
    void awaitLine(const std::string& expected) const;

    platform::FileDescriptor m_toIt;
    platform::FileDescriptor m_fromIt;
    pid_t m_id = -1;
};

} // namespace bench
