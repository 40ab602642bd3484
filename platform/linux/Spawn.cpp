#include "platform/Spawn.h"

#include "platform/BootProgram.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <unistd.h>

namespace {

constexpr int FIRST_CLOSED = STDERR_FILENO + 1;

class FileActions {
public:
    FileActions() { m_error = posix_spawn_file_actions_init(&m_actions); }
    ~FileActions() { posix_spawn_file_actions_destroy(&m_actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void map(int from, int to) { keep(posix_spawn_file_actions_adddup2(&m_actions, from, to)); }
    void closeFrom(int first) { keep(posix_spawn_file_actions_addclosefrom_np(&m_actions, first)); }

    int error() const { return m_error; }
    const posix_spawn_file_actions_t* get() const { return &m_actions; }

private:
    void keep(int error) {
        if (m_error == 0)
            m_error = error;
    }

    posix_spawn_file_actions_t m_actions;
    int m_error;
};

// A virtual machine blocks and ignores signals; a program started by it must not.
class CleanSignals {
public:
    CleanSignals() {
        posix_spawnattr_init(&m_attributes);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &all);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~CleanSignals() { posix_spawnattr_destroy(&m_attributes); }
    CleanSignals(const CleanSignals&) = delete;
    CleanSignals& operator=(const CleanSignals&) = delete;

    const posix_spawnattr_t* get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes;
};

bool isOpen(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

int spawn(const std::string& program, const char* const arguments[], int output) {
    FileActions actions;
    // Mapped onto itself, a descriptor loses its close-on-exec mark and reaches the child. Where the
    // caller has no standard input, the output may have got its number.
    if (output != STDIN_FILENO && isOpen(STDIN_FILENO))
        actions.map(STDIN_FILENO, STDIN_FILENO);
    actions.map(output, STDOUT_FILENO);
    actions.map(STDOUT_FILENO, STDERR_FILENO);
    actions.closeFrom(FIRST_CLOSED);
    if (actions.error() != 0) {
        errno = actions.error();
        return -1;
    }
    pid_t child = -1;
    const int error = posix_spawn(&child, program.c_str(), actions.get(), CleanSignals().get(),
                                  const_cast<char* const*>(arguments), environ);
    if (error != 0) {
        errno = error;
        return -1;
    }
    return child;
}

} // namespace

int Spawn::start(const char* path, const char* const arguments[], int output) noexcept {
    if (!path || !arguments) {
        errno = EINVAL;
        return -1;
    }
    try {
        return spawn(platform::locateProgram(path), arguments, output);
    } catch (const std::exception&) {
        errno = ENOMEM;
        return -1;
    }
}
