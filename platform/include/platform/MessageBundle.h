#pragma once

#include "platform/Export.h"

#include <string>

/// One reported error: its id for programs and its message for people.
class PLATFORM_API MessageBundle {
public:
    /// @param id    such as "crypt.damaged"; null is taken as empty
    /// @param text  in UTF-8, without any secret; null is taken as empty
    MessageBundle(const char* id, const char* text);

    const char* id() const noexcept { return m_id.c_str(); }
    const char* text() const noexcept { return m_text.c_str(); }

private:
    std::string m_id;
    std::string m_text;
};
