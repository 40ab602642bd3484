#pragma once

#include <string>

namespace test {

enum class CheckedBy { SYNTAX, SCHEMA };

/// Whether this build has something to read documents with.
extern const bool CAN_READ_XML;

/// Why a document cannot be read, or does not follow docs/wifiHostSettings.xsd; "" where nothing is
/// wrong, and where this build cannot tell.
std::string faultOf(const std::string& document, CheckedBy check);

} // namespace test
