#pragma once

#include <memory>
#include <string>
#include <sys/types.h>

namespace platform {

/// The start of a program, prepared so that run() needs neither memory nor locks.
class SpawnPlan {
public:
    /// @param path, arguments, output  as for Spawn::start(); the arguments must outlive the plan
    SpawnPlan(const char* path, const char* const arguments[], int output);
    ~SpawnPlan();

    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    /// Starts the program.
    /// @return 0 and the process id of the child, or an error number
    int run(pid_t& child) const noexcept;

    /// Prints one line on standard error in a process when a program of the boot image cannot be
    /// started.
    /// @param error  what run() returned
    void warn(int error) const;

private:
    struct Prepared;

    std::string m_path;
    const char* const* m_arguments;
    std::unique_ptr<Prepared> m_prepared;
};

} // namespace platform
