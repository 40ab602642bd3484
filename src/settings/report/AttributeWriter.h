#pragma once

class ErrorHandler;
class XWriter;

namespace platwifi {

/// Writes the elements of a document: raw pieces, and attributes with a blank in front of each.
class AttributeWriter {
public:
    /// @param errors  told why a secret could not be enciphered; may be null
    AttributeWriter(XWriter& out, ErrorHandler* errors) noexcept : m_out(out), m_errors(errors) {}

    void raw(const char* markup);

    /// Null is an empty text.
    void text(const char* name, const char* value);

    void number(const char* name, unsigned int value);

    void truth(const char* name, bool value);

    /// Writes the enciphered text of `value`: an empty one for null, and where it cannot be
    /// enciphered. Never the value itself.
    void secret(const char* name, const char* value);

private:
    XWriter& m_out;
    ErrorHandler* m_errors;
};

} // namespace platwifi
