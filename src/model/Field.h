#pragma once

#include "model/OwnedText.h"

namespace platwifi {

/// What fields that are written back have in common: the dirty flag, which the record that has the
/// field keeps. Setters of a field return whether it changed, and mark it then.
class TrackedField {
public:
    explicit TrackedField(bool& dirty) noexcept : m_dirty(dirty) {}

    /// @return true
    bool mark(bool dirty) noexcept {
        m_dirty = dirty;
        return true;
    }

    bool isDirty() const noexcept { return m_dirty; }

private:
    bool& m_dirty;
};

template <typename Number>
class NumberField : public TrackedField {
public:
    explicit NumberField(bool& dirty, Number initial = 0) noexcept
        : TrackedField(dirty), m_number(initial) {}

    bool set(Number number) noexcept {
        if (number == m_number)
            return false;
        m_number = number;
        return mark(true);
    }

    Number get() const noexcept { return m_number; }

private:
    Number m_number;
};

class TextField : public TrackedField {
public:
    using TrackedField::TrackedField;

    bool set(const char* text) noexcept { return m_text.assign(text) && mark(true); }

    /// Unsets the text without marking the field.
    void clear() noexcept { m_text.clear(); }

    const char* get() const noexcept { return m_text.get(); }

private:
    OwnedText m_text;
};

} // namespace platwifi
