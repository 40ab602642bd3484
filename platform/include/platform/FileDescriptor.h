#pragma once

#include <unistd.h>
#include <utility>

namespace platform {

/// An open file descriptor, or none; closed with the object.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) noexcept : m_number(number) {}
    ~FileDescriptor() { close(); }

    FileDescriptor(FileDescriptor&& other) noexcept : m_number(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool isOpen() const noexcept { return m_number != -1; }
    int number() const noexcept { return m_number; }

    void close() noexcept {
        if (isOpen())
            ::close(release());
    }

    /// Returns the descriptor, which the caller closes from now on.
    int release() noexcept { return std::exchange(m_number, -1); }

private:
    int m_number;
};

} // namespace platform
