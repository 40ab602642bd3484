#pragma once

#include <string>

namespace test {

/// Whether these bytes are what a Java virtual machine calls modified UTF-8: characters of one to
/// three bytes in their shortest form, U+0000 as C0 80, surrogates (paired or not) as three bytes.
bool isModifiedUtf8(const std::string& bytes);

} // namespace test
