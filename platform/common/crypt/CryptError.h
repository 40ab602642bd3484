#pragma once

#include <stdexcept>
#include <string>

namespace platform {

/// A failure of the cipher, to be reported to the caller's ErrorHandler. Never thrown out of this
/// library.
class CryptError : public std::runtime_error {
public:
    /// @param id    one of the ids in platform/Crypt.h
    /// @param text  the cause and what to do, without a secret
    CryptError(const char* id, const std::string& text) : std::runtime_error(text), m_id(id) {}

    const char* id() const noexcept { return m_id; }

private:
    const char* m_id;
};

[[noreturn]] inline void throwDamaged() {
    throw CryptError("crypt.damaged",
                     "this is not an enciphered text, or it has been damaged or cut "
                     "short; encipher the secret again");
}

} // namespace platform
