#pragma once

#include <memory>

namespace platwifi {

/// A text that its owner copied: an array of exactly length + 1, or null while it is not set. Where
/// there is no memory for a copy, the process ends.
class OwnedText {
public:
    /// The text, valid until it changes; null when it is not set.
    const char* get() const noexcept { return m_text.get(); }

    /// Takes a copy of `value`, which may lie inside the present text. Null clears.
    ///
    /// An empty text is no news where nothing is set or the text is empty: "" over null stays null,
    /// null over "" stays "". Over a text, "" is stored as an empty text.
    /// @return whether the text changed
    bool assign(const char* value) noexcept;

    void clear() noexcept { m_text.reset(); }

private:
    std::unique_ptr<char[]> m_text;
};

} // namespace platwifi
