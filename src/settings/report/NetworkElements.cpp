#include "settings/report/NetworkElements.h"

#include "settings/report/NetworkAttributes.h"
#include "settings/report/SecurityType.h"

namespace platwifi {
namespace {

constexpr const char* CONTENT = ">\n"; // ends the start tag of an element with content
constexpr const char* EMPTY = "/>\n";  // ends the tag of an empty element

void writeSupported(AttributeWriter& out, const SecurityType* type) {
    out.raw("      <wifiSecuritySupported");
    out.number("numberSupported", type ? 1 : 0);
    if (!type) {
        out.raw(EMPTY);
        return;
    }
    out.raw(CONTENT);
    out.raw("        <wifiSecurity");
    out.text("type", type->name);
    out.raw(EMPTY);
    out.raw("      </wifiSecuritySupported>\n");
}

void writeConfigured(AttributeWriter& out, const SecurityType* type, const WifiNetwork& network) {
    const bool isConfigured = type && type->attributes != 0;
    out.raw("      <wifiSecurityConfiguration");
    out.number("numberConfigured", isConfigured ? 1 : 0);
    if (!isConfigured) {
        out.raw(EMPTY);
        return;
    }
    out.raw(CONTENT);
    out.raw("        <configuration");
    out.text("type", type->name);
    writeConfiguration(out, network, type->attributes);
    out.raw(EMPTY);
    out.raw("      </wifiSecurityConfiguration>\n");
}

} // namespace

void writeNetwork(AttributeWriter& out, const WifiNetwork& network) {
    const SecurityType* const type = securityTypeOf(network);
    out.raw("    <wifiNetwork");
    writeDescription(out, network);
    out.raw(CONTENT);
    writeSupported(out, type);
    writeConfigured(out, type, network);
    out.raw("    </wifiNetwork>\n");
}

void writeShortNetwork(AttributeWriter& out, const WifiNetwork& network) {
    out.raw("    <wifiNetwork");
    writeListEntry(out, network);
    out.raw("/>");
}

} // namespace platwifi
