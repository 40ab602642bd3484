#include "XmlElement.h"

#include "jni/ServiceFunctions.h"

#include <pugixml.hpp>
#include <stdexcept>

namespace bench {
namespace {

XmlElement elementOf(const pugi::xml_node& node) {
    XmlElement element{node.name(), {}, {}};
    for (const pugi::xml_attribute& attribute : node.attributes())
        element.attributes.emplace_back(attribute.name(), attribute.value());
    for (const pugi::xml_node& child : node.children())
        element.children.push_back(elementOf(child));
    return element;
}

} // namespace

bool operator==(const XmlElement& one, const XmlElement& other) {
    return one.name == other.name && one.attributes == other.attributes &&
           one.children == other.children;
}

XmlElement parse(const std::string& document) {
    pugi::xml_document parsed;
    const pugi::xml_parse_result result = parsed.load_string(document.c_str());
    if (!result)
        throw std::runtime_error(std::string("no XML document: ") + result.description());
    return elementOf(parsed.document_element());
}

std::string libraryDocument() {
    BufferedXWriter out;
    if (getWifiHostSettingsXML(&out, nullptr, true) == 0 || out.length() == 0)
        throw std::runtime_error("the library writes no XML document");
    return out.text();
}

} // namespace bench
