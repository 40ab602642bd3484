// Tells what keeps the document on standard input from following docs/wifiHostSettings.xsd.

#include "unit/settings/XmlReader.h"

#include <iostream>
#include <iterator>
#include <string>

int main() {
    const std::string document(std::istreambuf_iterator<char>(std::cin), {});
    const std::string faults = test::faultOf(document, test::CheckedBy::SCHEMA);
    std::cerr << faults;
    return faults.empty() ? 0 : 1;
}
