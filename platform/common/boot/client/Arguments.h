#pragma once

namespace client {

/// A copy of the program's arguments. The originals are overwritten with NULs:
/// every user may read the arguments of a process, and one of them may be a key.
class Arguments {
public:
    Arguments(int count, char* originals[]) noexcept;
    ~Arguments();
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    int count() const noexcept { return m_count; }

    /// The name of the program comes first; null follows the last one.
    char* const* get() const noexcept { return m_copies; }

private:
    int m_count;
    char** m_copies;
};

} // namespace client
