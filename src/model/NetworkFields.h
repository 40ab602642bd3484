#pragma once

#include "model/Field.h"
#include "model/UnreadFields.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>

class WifiNetwork;

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

/// The values of a network's fields, and which of them are dirty: changed, and not written back yet.
/// Tables reach every field through this by its name in `Field`. The rules of WifiNetwork hold for
/// access, locking and memory.
///
/// text() and setText() take the name of a text, number() and setNumber() that of a number.
///
/// Where there are unread fields (setUnread()), a field that is set is read first, and a change has the
/// fields read that the security uses from then on. Both run commands of the client.
class NetworkFields {
public:
    /// The fields of a network, which stay the network's own.
    static NetworkFields& of(WifiNetwork& network) noexcept;
    static const NetworkFields& of(const WifiNetwork& network) noexcept;

    /// The first network of a list that has this SSID, byte for byte; null for none and for a null SSID. An
    /// unset SSID equals no other. Each network costs one comparison of numbers.
    /// @param first  null for an empty list
    static WifiNetwork* find(WifiNetwork* first, const char* ssid) noexcept;

    /// Every text is unset and every number 0, but the mode, which is unknown, and the
    /// protection of management frames, which is the default. Nothing is dirty.
    NetworkFields() noexcept;

    /// The text, valid until it changes; null when it is not set.
    const char* text(Field field) const noexcept;

    /// Stores a copy of a text by the rules of OwnedText::assign(), and marks the field dirty when it
    /// changed. An empty WEP key clears the key without marking it.
    /// @return whether the field was changed; false for an empty WEP key
    bool setText(Field field, const char* value) noexcept;

    unsigned int number(Field field) const noexcept;

    /// Stores a number, and marks the field dirty when it changed. Network mode and network id keep the
    /// low 8 bits. A WEP index above 3 is refused.
    /// @return whether the field was changed. The SSID broadcast flag, and numbers that are never
    ///         written back, count as changed each time.
    bool setNumber(Field field, unsigned int value) noexcept;

    bool isDirty(Field field) const noexcept { return contains(m_dirty, field); }

    /// An unread field is read first: a dirty field is written.
    /// @return true
    bool setDirty(Field field, bool dirty) noexcept;

    /// Whether there is a dirty field, the anonymous identity apart.
    bool needsSave() const noexcept;

    FieldSet dirtyFields() const noexcept { return m_dirty; }
    void setDirtyFields(FieldSet fields) noexcept { m_dirty = fields; }
    void clearDirty() noexcept { m_dirty = 0; }

    /// Takes over the fields that were not read; null for none.
    void setUnread(std::unique_ptr<UnreadFields> unread) noexcept { m_unread = std::move(unread); }

private:
    bool isKnown(Field field) noexcept;
    bool changed(Field field) noexcept;
    void mark(Field field, bool dirty) noexcept;

    std::array<OwnedText, TEXT_FIELD_COUNT> m_texts;
    std::array<unsigned int, FIELD_COUNT - TEXT_FIELD_COUNT> m_numbers{};
    std::uint32_t m_ssidHash = 0; // see find()
    FieldSet m_dirty = 0;
    std::unique_ptr<UnreadFields> m_unread; ///< null for none, and while they are being read
};

} // namespace platwifi
