// Tells what keeps the document on standard input from being read, or, with the argument "schema", from
// following docs/wifiHostSettings.xsd.

#include "unit/settings/XmlReader.h"

#include <iostream>
#include <iterator>
#include <string>

int main(int count, char* arguments[]) {
    const bool hasSchema = count == 2 && std::string(arguments[1]) == "schema";
    const std::string document(std::istreambuf_iterator<char>(std::cin), {});
    const std::string faults =
        test::faultOf(document, hasSchema ? test::CheckedBy::SCHEMA : test::CheckedBy::SYNTAX);
    std::cerr << faults;
    return faults.empty() ? 0 : 1;
}
