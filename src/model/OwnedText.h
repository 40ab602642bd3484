#pragma once

#include <memory>

namespace platwifi {

/// A copy of a text, in an array of exactly length + 1, or null while no text is set. Where there is no
/// memory for a copy, the process ends.
class OwnedText {
public:
    /// The text, valid until it changes; null when it is not set.
    const char* get() const noexcept { return m_text.get(); }

    /// Stores a copy of `value`, which may lie inside the present text. Null clears the text.
    ///
    /// Null and "" are the same text for the comparison: "" over null leaves null, and null over "" leaves "".
    /// Over any other text, "" is stored as an empty text.
    /// @return whether the text changed
    bool assign(const char* value) noexcept;

    void clear() noexcept { m_text.reset(); }

private:
    std::unique_ptr<char[]> m_text;
};

} // namespace platwifi
