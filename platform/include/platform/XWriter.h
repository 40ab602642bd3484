#pragma once

#include "platform/Export.h"

#include <cstddef>

/// Writes XML 1.0 in UTF-8. A derived class decides where the text goes.
class PLATFORM_API XWriter {
public:
    virtual ~XWriter();

    /// Writes raw text, unescaped. Null writes nothing.
    void w(const char* text);

    /// Writes one raw character. A NUL writes nothing.
    void w(char character);

    /// Writes name="value". Any value gives a well-formed document: markup characters become
    /// entities, tab, line feed and carriage return become character references, and a reader gets
    /// the original characters. Each character that XML cannot contain, and each byte that is not
    /// UTF-8, becomes U+FFFD. Null is written as an empty value. With a null or empty name nothing
    /// is written.
    /// @param name  an XML name, written without a check
    void attr(const char* name, const char* value);

    /// The same with a value formatted as by printf(), cut to its first `size` - 1 bytes. With a
    /// null format, or a size of 1 or less, the value is empty.
    void attrf(const char* name, const char* format, int size, ...)
        __attribute__((format(printf, 3, 5)));

protected:
    XWriter() = default;

    /// Appends `length` bytes to the document.
    virtual void write(const char* bytes, std::size_t length) = 0;

private:
    void writeEscaped(const char* text);
};
