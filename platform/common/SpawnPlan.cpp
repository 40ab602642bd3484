#include "common/SpawnPlan.h"

#include "common/Descriptors.h"
#include "platform/BootProgram.h"
#include "platform/OnceWarning.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

// POSIX has it in no header, but some systems do.
extern char** environ; // NOLINT(readability-redundant-declaration)

namespace platform {
namespace {

constexpr int FIRST_CLOSED = STDERR_FILENO + 1;

class FileActions {
public:
    FileActions() { m_error = posix_spawn_file_actions_init(&m_actions); }
    ~FileActions() { posix_spawn_file_actions_destroy(&m_actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void map(int from, int to) { keep(posix_spawn_file_actions_adddup2(&m_actions, from, to)); }
    void closeFrom(int first) { keep(addCloseFrom(m_actions, first)); }

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

// The signal state of the child: none blocked, all with the default action. A Java virtual machine
// blocks and ignores some, and its children would inherit that.
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

// Whether the cause is the program, not its arguments or a lack of resources.
bool isProgramError(int error) {
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == EACCES ||
           error == ENOEXEC;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

bool isOpen(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

} // namespace

struct SpawnPlan::Prepared {
    std::string program;
    FileActions actions;
    CleanSignals signals;
};

SpawnPlan::SpawnPlan(const char* path, const char* const arguments[], int output)
    : m_path(path), m_arguments(arguments), m_prepared(std::make_unique<Prepared>()) {
    m_prepared->program = locateProgram(m_path);
    FileActions& actions = m_prepared->actions;
    // A descriptor that is mapped to itself loses its close-on-exec flag, so the child gets it. If
    // the caller has no standard input, the output may have descriptor 0.
    if (output != STDIN_FILENO && isOpen(STDIN_FILENO))
        actions.map(STDIN_FILENO, STDIN_FILENO);
    actions.map(output, STDOUT_FILENO);
    actions.map(STDOUT_FILENO, STDERR_FILENO);
    actions.closeFrom(FIRST_CLOSED);
}

SpawnPlan::~SpawnPlan() = default;

int SpawnPlan::run(pid_t& child) const noexcept {
    if (m_prepared->actions.error() != 0)
        return m_prepared->actions.error();
    return posix_spawn(&child, m_prepared->program.c_str(), m_prepared->actions.get(),
                       m_prepared->signals.get(), const_cast<char* const*>(m_arguments), environ);
}

// Without this line, every call would fail and nothing would show that a program is missing.
void SpawnPlan::warn(int error) const {
    static OnceWarning warning;
    if (!isBootProgram(m_path) || !isProgramError(error))
        return;
    warning.print("cannot start " + m_path.substr(m_path.rfind('/') + 1) + ": " +
                  std::generic_category().message(error) + "; looked for " +
                  joined(programPlaces(m_path)) +
                  "; install the boot directory (wpa_cli, pidin) with the libraries, or set "
                  "PLATFORM_BOOT_DIR to its path");
}

} // namespace platform
