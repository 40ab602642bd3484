#include "settings/report/AttributeWriter.h"

#include "platform/Crypt.h"
#include "platform/XWriter.h"

#include <memory>

namespace platwifi {
namespace {

constexpr int NUMBER_SIZE = 32; // more than any number takes

std::unique_ptr<char[]> enciphered(ErrorHandler* errors, const char* plain) {
    char* result = nullptr;
    if (plain)
        Crypt::encrypt(errors, plain, &result);
    return std::unique_ptr<char[]>(result);
}

} // namespace

void AttributeWriter::raw(const char* markup) {
    m_out.w(markup);
}

void AttributeWriter::text(const char* name, const char* value) {
    m_out.w(' ');
    m_out.attr(name, value);
}

void AttributeWriter::number(const char* name, unsigned int value) {
    m_out.w(' ');
    m_out.attrf(name, "%u", NUMBER_SIZE, value);
}

void AttributeWriter::boolean(const char* name, bool value) {
    text(name, value ? "true" : "false");
}

void AttributeWriter::secret(const char* name, const char* value) {
    text(name, enciphered(m_errors, value).get());
}

} // namespace platwifi
