#pragma once

#include "platform/FileDescriptor.h"
#include "supplicant/ResultTag.h"

#include <cstddef>
#include <cstdio>

namespace platwifi {

/// Opens (creates, or empties) the file that takes a child's output, with mode 0440. It stands in a
/// folder that everybody may write to, so a link, or anything else that is not a regular file, is
/// refused; a file that is left over, and that this process may not write, does not own or that has a
/// second name, is replaced.
platform::FileDescriptor createResultFile(const char* path);

/// The file between a command and its reply. The name carries the calling thread's id, so two
/// threads of a process never share one; the file is removed when the command is over. Until then the
/// id is claimed, so that no process that starts takes the file for a leftover.
class ResultFile {
public:
    /// @param prefix  path without the thread's id; cut together with it to 127 characters
    explicit ResultFile(const char* prefix) noexcept;
    ~ResultFile();

    ResultFile(const ResultFile&) = delete;
    ResultFile& operator=(const ResultFile&) = delete;

    const char* path() const noexcept { return m_path; }

    /// Leaves the file where it is.
    void keep() noexcept { m_kept = true; }

    /// Opens what the child wrote. False where that cannot be done; then there is nothing to read.
    bool open() noexcept;

    /// Reads the next line, or the next `size` - 1 characters of a longer one, without its line
    /// feed. False at the end.
    bool readLine(char* line, int size) noexcept;

private:
    ResultClaim m_claim;
    char m_path[128];
    std::FILE* m_file = nullptr;
    bool m_kept = false;
};

/// A line of a client's reply. What is longer arrives in pieces.
struct ReplyLine {
    static constexpr int SIZE = 128;
    char text[SIZE] = "";

    bool readFrom(ResultFile& file) noexcept { return file.readLine(text, SIZE); }
};

} // namespace platwifi
