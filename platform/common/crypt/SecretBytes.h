#pragma once

#include "common/Wipe.h"

#include <cstddef>
#include <vector>

namespace platform {

/// Bytes that the destructor wipes from memory. Their number is fixed: growing would leave a copy
/// behind.
class SecretBytes {
public:
    explicit SecretBytes(std::size_t size) : m_bytes(size) {}
    ~SecretBytes() { wipe(m_bytes.data(), m_bytes.size()); }

    SecretBytes(SecretBytes&&) = default;
    SecretBytes& operator=(SecretBytes&&) = delete;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;

    unsigned char* data() noexcept { return m_bytes.data(); }
    const unsigned char* data() const noexcept { return m_bytes.data(); }
    std::size_t size() const noexcept { return m_bytes.size(); }

private:
    std::vector<unsigned char> m_bytes;
};

} // namespace platform
