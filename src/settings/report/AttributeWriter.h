#pragma once

class ErrorHandler;
class XWriter;

namespace platwifi {

/// Writes parts of an XML document: markup as it is given, and attributes with a blank before each.
class AttributeWriter {
public:
    /// @param errors  receives the error when a secret cannot be enciphered; may be null
    AttributeWriter(XWriter& out, ErrorHandler* errors) noexcept : m_out(out), m_errors(errors) {}

    void raw(const char* markup);

    /// Null gives an empty text.
    void text(const char* name, const char* value);

    void number(const char* name, unsigned int value);

    /// Writes "true" or "false".
    void boolean(const char* name, bool value);

    /// Writes `value` enciphered, never in plain. Null gives an empty text, and so does a value that
    /// cannot be enciphered.
    void secret(const char* name, const char* value);

private:
    XWriter& m_out;
    ErrorHandler* m_errors;
};

} // namespace platwifi
