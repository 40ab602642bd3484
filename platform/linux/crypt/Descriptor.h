#pragma once

#include <unistd.h>
#include <utility>

namespace platform {

/// An open file descriptor, closed with the object.
class Descriptor {
public:
    explicit Descriptor(int descriptor) noexcept : m_descriptor(descriptor) {}
    ~Descriptor() {
        if (isOpen())
            close(m_descriptor);
    }

    Descriptor(Descriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    bool isOpen() const noexcept { return m_descriptor != -1; }
    int get() const noexcept { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace platform
