#pragma once

#include "Arguments.h"

#include <stddef.h>

namespace client {

/// The most bytes of a request and of a reply, with a NUL. The host's client has the same limit.
constexpr size_t MESSAGE_SIZE = 4096;

/// What a command line asks the supplicant for.
class Request {
public:
    /// Takes a command line: an optional `-iINTERFACE`, the word of a command in the table, and as many arguments as
    /// the command may have.
    /// @param arguments  must live longer than the request
    /// @return false for every other command line: the host's client has to answer it
    bool read(const Arguments& arguments) noexcept;

    /// The interface; null if none was given.
    const char* iface() const noexcept { return m_iface; }

    /// What is sent.
    const char* text() const noexcept { return m_text; }
    size_t length() const noexcept { return m_length; }

    /// What is printed in front of the reply.
    const char* heading() const noexcept { return m_heading; }

    /// Whether the exit status is 0 without a reply, too.
    bool alwaysSucceeds() const noexcept { return m_alwaysSucceeds; }

private:
    bool append(const char* text) noexcept;
    bool appendAll(const char* const* words) noexcept;

    const char* m_iface = nullptr;
    const char* m_heading = "";
    bool m_alwaysSucceeds = false;
    char m_text[MESSAGE_SIZE] = "";
    size_t m_length = 0;
};

} // namespace client
