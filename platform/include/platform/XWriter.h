#pragma once

#include "platform/Export.h"

#include <cstddef>

/// Writes XML 1.0 in UTF-8, piece by piece, to wherever the derived class puts it.
class PLATFORM_API XWriter {
public:
    virtual ~XWriter();

    /// Writes raw text, unescaped. Null writes nothing.
    void w(const char* text);

    /// Writes one raw character. A NUL writes nothing.
    void w(char character);

    /// Writes name="value". The value is escaped so that any bytes give a well-formed document and
    /// a reader gets back what the value was: markup characters as entities; tab, line feed and
    /// carriage return as character references; every character that XML cannot hold, and every
    /// byte that is not UTF-8, as U+FFFD. A null value writes an empty one; a null or empty name
    /// writes nothing at all.
    /// @param name  an XML name, written as it stands
    void attr(const char* name, const char* value);

    /// The same with a value made as printf() does and cut to its first `size` - 1 bytes. A null
    /// format, or a size of 1 or less, writes an empty value.
    void attrf(const char* name, const char* format, int size, ...)
        __attribute__((format(printf, 3, 5)));

protected:
    XWriter() = default;

    /// Takes the next `length` bytes of the document.
    virtual void write(const char* bytes, std::size_t length) = 0;

private:
    void writeEscaped(const char* text);
};
