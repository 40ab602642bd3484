#pragma once

#include "platform/Export.h"

#include <cstddef>

/// Writes XML 1.0 in UTF-8, piece by piece, to wherever the derived class puts it.
class PLATFORM_API XWriter {
public:
    virtual ~XWriter();

    /// Writes raw text, unescaped. Null writes nothing.
    void w(const char* text);

    /// Writes one raw character.
    void w(char character);

    /// Writes name="value". The value is escaped so that any bytes give a well-formed document and
    /// a reader gets back what the value was: markup characters as entities; tab, line feed and
    /// carriage return as character references; every character that XML cannot hold, and every
    /// byte that is not UTF-8, as U+FFFD. Null writes an empty value.
    void attr(const char* name, const char* value);

    /// The same with a value made as printf() does, cut to `size` - 1 characters.
    void attrf(const char* name, const char* format, int size, ...)
        __attribute__((format(printf, 3, 5)));

protected:
    XWriter() = default;

    /// Takes the next `length` bytes of the document.
    virtual void write(const char* bytes, std::size_t length) = 0;
};
