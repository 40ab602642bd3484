#pragma once

#include "platform/Export.h"

#include <string>

/// The record of one reported error: which error it is, and what a person reads.
class PLATFORM_API MessageBundle {
public:
    /// @param id    name of the error for programs, such as "crypt.damaged"; null counts as empty
    /// @param text  message in UTF-8, never holding a secret; null counts as empty
    MessageBundle(const char* id, const char* text);

    const char* id() const noexcept { return m_id.c_str(); }
    const char* text() const noexcept { return m_text.c_str(); }

private:
    std::string m_id;
    std::string m_text;
};
