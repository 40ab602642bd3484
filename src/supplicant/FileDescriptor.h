#pragma once

#include <unistd.h>

namespace platwifi {

/// Owns one open descriptor, or none.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) noexcept : m_number(number) {}
    ~FileDescriptor() { close(); }

    FileDescriptor(FileDescriptor&& other) noexcept : m_number(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&&) = delete;

    bool isOpen() const noexcept { return m_number != -1; }
    int number() const noexcept { return m_number; }

    void close() noexcept {
        if (isOpen())
            ::close(release());
    }

    /// Gives the descriptor away.
    int release() noexcept {
        const int number = m_number;
        m_number = -1;
        return number;
    }

private:
    int m_number;
};

} // namespace platwifi
