#pragma once

#include "platform/FileDescriptor.h"
#include "platform/SpawnedChild.h"

namespace platwifi {

/// The argument vector of a child: at most six entries and the closing null.
class ArgumentVector {
public:
    /// Null entries are left out, by uneven rules that callers rely on: a null `command` drops all
    /// that follows it, a null `arg1` drops `arg2` and `arg3`, a null `arg2` drops only itself.
    ArgumentVector(const char* path, const char* interfaceArg, const char* command,
                   const char* arg1, const char* arg2, const char* arg3) noexcept;

    const char* const* get() const noexcept { return m_entries; }

private:
    void add(const char* entry) noexcept;

    const char* m_entries[7] = {};
    int m_count = 0;
};

/// Starts a child at raised priority, its output going to `output`.
platform::SpawnedChild startChild(const char* path, const ArgumentVector& arguments,
                                  const platform::FileDescriptor& output);

/// Waits for the child and reaps it. One that is still there at the 100th look, 50 ms apart, is
/// killed with a message on standard error that names `command`, and killed again every 2000 ms. The
/// pause between two looks, after a kill too, ends early when the child does.
/// @return true when it exited with status 0; false, with one line on standard error in a process, where
///         its status was lost
bool waitWithPatience(platform::SpawnedChild& child, const char* command);

} // namespace platwifi
