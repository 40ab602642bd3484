#include "XmlReader.h"

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <memory>

namespace test {
namespace {

template <typename Type, void (*FREE)(Type*)>
struct Free {
    void operator()(Type* object) const { FREE(object); }
};

template <typename Type, void (*FREE)(Type*)>
using Owned = std::unique_ptr<Type, Free<Type, FREE>>;

using Document = Owned<xmlDoc, xmlFreeDoc>;
using Schema = Owned<xmlSchema, xmlSchemaFree>;
using SchemaReader = Owned<xmlSchemaParserCtxt, xmlSchemaFreeParserCtxt>;
using Validation = Owned<xmlSchemaValidCtxt, xmlSchemaFreeValidCtxt>;

void note(void* faults, xmlErrorPtr error) {
    *static_cast<std::string*>(faults) += error->message;
}

std::string validated(xmlDoc* document) {
    std::string faults;
    const SchemaReader reader(xmlSchemaNewParserCtxt(TEST_SCHEMA));
    xmlSchemaSetParserStructuredErrors(reader.get(), note, &faults);
    const Schema schema(xmlSchemaParse(reader.get()));
    if (!schema)
        return "no schema: " + faults;
    const Validation validation(xmlSchemaNewValidCtxt(schema.get()));
    xmlSchemaSetValidStructuredErrors(validation.get(), note, &faults);
    if (xmlSchemaValidateDoc(validation.get(), document) != 0 && faults.empty())
        return "not valid";
    return faults;
}

} // namespace

const bool CAN_READ_XML = true;

std::string faultOf(const std::string& document, CheckedBy check) {
    std::string faults;
    xmlSetStructuredErrorFunc(&faults, note);
    const Document read(xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr,
                                      nullptr, XML_PARSE_NONET | XML_PARSE_HUGE));
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    if (!read || !faults.empty())
        return "not read: " + faults;
    return check == CheckedBy::SCHEMA ? validated(read.get()) : "";
}

} // namespace test
