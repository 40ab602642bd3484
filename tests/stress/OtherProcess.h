#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace stress {

/// A process that saves, see Saver.cpp for its arguments. It is killed when this object or its
/// parent ends.
class OtherProcess {
public:
    explicit OtherProcess(const std::vector<std::string>& arguments);
    ~OtherProcess();

    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    void signal(int number) const;

    /// Kills it.
    void kill();

    /// Waits until it has ended by itself. Fails unless its exit status is 0.
    void awaitEnd();

    /// Fails if it has ended by itself.
    void expectAlive();

private:
    pid_t m_id = -1;
};

} // namespace stress
