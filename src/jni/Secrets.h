#pragma once

#include "platform/ErrorHandler.h"

#include <memory>

namespace platwifi {

/// A secret on its way from a caller: the deciphered text, for the duration of a scope. It is false if the
/// text does not decipher.
class DecipheredText {
public:
    /// @param errors  receives the reason if the text does not decipher; may be null
    /// @param value   an enciphered text, or null or "", which clear a field and stand for themselves.
    ///                It outlives this object
    DecipheredText(ErrorHandler* errors, const char* value) noexcept;

    explicit operator bool() const noexcept { return m_isValid; }
    const char* text() const noexcept { return m_plain ? m_plain.get() : m_value; }

private:
    const char* m_value;
    std::unique_ptr<char[]> m_plain;
    bool m_isValid = true;
};

} // namespace platwifi
