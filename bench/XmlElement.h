#pragma once

#include <string>
#include <utility>
#include <vector>

namespace bench {

/// An element of a document. It has no text, because the library's documents have none.
struct XmlElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<XmlElement> children;
};

bool operator==(const XmlElement& one, const XmlElement& other);

/// The root of a document.
/// @throws std::runtime_error if it is not well-formed
XmlElement parse(const std::string& document);

/// The document of the library, in full.
/// @throws std::runtime_error if the library returns none
std::string libraryDocument();

} // namespace bench
