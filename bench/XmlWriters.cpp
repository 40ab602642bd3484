#include "XmlWriters.h"

#include "platform/BufferedXWriter.h"

#include <libxml/xmlwriter.h>
#include <memory>
#include <pugixml.hpp>
#include <tinyxml2.h>

namespace bench {
namespace {

// As the library uses it: pieces of markup, and attributes after a blank.
void write(XWriter& out, const XmlElement& element) {
    out.w('<');
    out.w(element.name.c_str());
    for (const auto& [name, value] : element.attributes) {
        out.w(' ');
        out.attr(name.c_str(), value.c_str());
    }
    out.w(element.children.empty() ? "/>\n" : ">\n");
    if (element.children.empty())
        return;
    for (const XmlElement& child : element.children)
        write(out, child);
    out.w("</");
    out.w(element.name.c_str());
    out.w(">\n");
}

std::string withPlatform(const XmlElement& root) {
    BufferedXWriter out;
    write(out, root);
    return out.text();
}

// The least work: the five characters of markup are escaped, and the text is not checked.
void append(std::string& out, char character) {
    switch (character) {
    case '&':
        out += "&amp;";
        break;
    case '<':
        out += "&lt;";
        break;
    case '>':
        out += "&gt;";
        break;
    case '"':
        out += "&quot;";
        break;
    case '\'':
        out += "&apos;";
        break;
    default:
        out += character;
    }
}

void append(std::string& out, const XmlElement& element) {
    out.append("<").append(element.name);
    for (const auto& [name, value] : element.attributes) {
        out.append(" ").append(name).append("=\"");
        for (const char character : value)
            append(out, character);
        out += '"';
    }
    out += element.children.empty() ? "/>\n" : ">\n";
    if (element.children.empty())
        return;
    for (const XmlElement& child : element.children)
        append(out, child);
    out.append("</").append(element.name).append(">\n");
}

std::string withString(const XmlElement& root) {
    std::string out;
    append(out, root);
    return out;
}

void print(tinyxml2::XMLPrinter& out, const XmlElement& element) {
    out.OpenElement(element.name.c_str());
    for (const auto& [name, value] : element.attributes)
        out.PushAttribute(name.c_str(), value.c_str());
    for (const XmlElement& child : element.children)
        print(out, child);
    out.CloseElement();
}

std::string withTinyXml2(const XmlElement& root) {
    tinyxml2::XMLPrinter out;
    print(out, root);
    return out.CStr();
}

// This library can only write a tree.
void build(pugi::xml_node parent, const XmlElement& element) {
    pugi::xml_node node = parent.append_child(element.name.c_str());
    for (const auto& [name, value] : element.attributes)
        node.append_attribute(name.c_str()).set_value(value.c_str());
    for (const XmlElement& child : element.children)
        build(node, child);
}

struct Appender : pugi::xml_writer {
    std::string text;

    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
};

std::string withPugiXml(const XmlElement& root) {
    pugi::xml_document document;
    build(document, root);
    Appender out;
    document.save(out, "", pugi::format_raw | pugi::format_no_declaration);
    return out.text;
}

const xmlChar* xml(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

void write(xmlTextWriter* out, const XmlElement& element) {
    xmlTextWriterStartElement(out, xml(element.name));
    for (const auto& [name, value] : element.attributes)
        xmlTextWriterWriteAttribute(out, xml(name), xml(value));
    for (const XmlElement& child : element.children)
        write(out, child);
    xmlTextWriterEndElement(out);
}

std::string withLibXml2(const XmlElement& root) {
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                      xmlBufferFree);
    xmlTextWriter* const out = xmlNewTextWriterMemory(buffer.get(), 0);
    write(out, root);
    xmlFreeTextWriter(out); // writes the rest to the buffer
    return reinterpret_cast<const char*>(xmlBufferContent(buffer.get()));
}

} // namespace

const XmlWriter PLATFORM_WRITER{"the platform's writer", withPlatform};
const XmlWriter STRING_WRITER{"appending to a string", withString};
const XmlWriter TINYXML2_WRITER{"tinyxml2's printer", withTinyXml2};
const XmlWriter PUGIXML_WRITER{"pugixml, tree and all", withPugiXml};
const XmlWriter LIBXML2_WRITER{"libxml2's text writer", withLibXml2};

} // namespace bench
