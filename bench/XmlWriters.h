#pragma once

#include "XmlElement.h"

namespace bench {

/// A way to write an element as a document.
struct XmlWriter {
    const char* name;
    std::string (*write)(const XmlElement& root);
};

extern const XmlWriter PLATFORM_WRITER;
extern const XmlWriter STRING_WRITER;
extern const XmlWriter TINYXML2_WRITER;
extern const XmlWriter PUGIXML_WRITER;
extern const XmlWriter LIBXML2_WRITER;

} // namespace bench
