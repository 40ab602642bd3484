#pragma once

#include <string>
#include <utility>
#include <vector>

namespace bench {

/// An element of a document, without text: the library's documents have none.
struct XmlElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<XmlElement> children;
};

bool operator==(const XmlElement& one, const XmlElement& other);

/// The root of a document.
/// @throws std::runtime_error where it is not well-formed
XmlElement parse(const std::string& document);

/// The document of the library, in full.
/// @throws std::runtime_error where there is none
std::string libraryDocument();

} // namespace bench
