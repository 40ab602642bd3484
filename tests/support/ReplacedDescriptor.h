#pragma once

#include <fcntl.h>
#include <unistd.h>

namespace test {

/// Makes a descriptor refer to what another one refers to, or closes it for -1, during its lifetime.
class ReplacedDescriptor {
public:
    ReplacedDescriptor(int descriptor, int other)
        : m_descriptor(descriptor), m_kept(fcntl(descriptor, F_DUPFD_CLOEXEC, 3)) {
        if (other == -1)
            close(m_descriptor);
        else
            dup2(other, m_descriptor);
    }
    ~ReplacedDescriptor() {
        if (m_kept == -1) {
            close(m_descriptor);
            return;
        }
        dup2(m_kept, m_descriptor);
        close(m_kept);
    }

    ReplacedDescriptor(const ReplacedDescriptor&) = delete;
    ReplacedDescriptor& operator=(const ReplacedDescriptor&) = delete;

private:
    int m_descriptor;
    int m_kept; // -1 where it was closed
};

} // namespace test
