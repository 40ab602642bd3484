#pragma once

#include "platform/FileDescriptor.h"
#include "supplicant/ResultTag.h"

#include <cstddef>
#include <cstdio>
#include <optional>

namespace platwifi {

/// Creates or empties the file for a child's output, with mode 0440. Every user may write to its
/// folder, so a link, or anything else that is not a regular file, is refused. A leftover file is
/// replaced when this process may not write it, does not own it, or when it has a second name.
platform::FileDescriptor createResultFile(const char* path);

/// The file for the reply to one command. Under the profile `modern` it has no name and lives in memory;
/// path() and keep() play no part then.
///
/// Under `device` its name ends in the calling thread's id, so two threads
/// of a process never share one. The id is claimed during the object's lifetime, so that no other
/// process removes the file as a leftover. The destructor removes it.
class ResultFile {
public:
    /// @param prefix  path without the thread's id; cut together with it to 127 characters
    explicit ResultFile(const char* prefix) noexcept;
    ~ResultFile();

    ResultFile(const ResultFile&) = delete;
    ResultFile& operator=(const ResultFile&) = delete;

    const char* path() const noexcept { return m_path; }

    /// The file without a name; not open for a file with one.
    const platform::FileDescriptor& unnamed() const noexcept { return m_unnamed; }

    /// The destructor leaves the file in place.
    void keep() noexcept { m_kept = true; }

    /// Opens what the child wrote. On false there is nothing to read.
    bool open() noexcept;

    /// Reads the next line, or the next `size` - 1 characters of a longer one, without its line
    /// feed. False at the end.
    bool readLine(char* line, int size) noexcept;

private:
    std::FILE* openNamed() noexcept;
    std::FILE* openUnnamed() noexcept;

    platform::FileDescriptor m_unnamed;
    std::optional<ResultClaim> m_claim; ///< for a file with a name
    char m_path[128] = "";
    std::FILE* m_file = nullptr;
    char m_buffer[1024]; ///< of m_file: else each command allocates one
    bool m_kept = false;
};

/// A line of a client's reply. A longer line arrives in pieces.
struct ReplyLine {
    static constexpr int SIZE = 128;
    char text[SIZE] = "";

    bool readFrom(ResultFile& file) noexcept { return file.readLine(text, SIZE); }
};

} // namespace platwifi
