// The XML document: for any values of the networks it is well-formed, its full form is valid, and a reader
// gets back every value that XML can contain.

#include "Input.h"
#include "ModelSupplicant.h"
#include "Require.h"

#include "model/WifiNetwork.h"
#include "platform/BufferedXWriter.h"
#include "platform/Crypt.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <cstring>
#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <memory>
#include <optional>

using fuzz::Input;
using fuzz::ModelSupplicant;

namespace {

constexpr const char* KEY_FILE = "/tmp/fuzz-xml.key"; // in the private world
constexpr const char* ADAPTER = "wlan0";
constexpr const char* REPLACEMENT = "\xEF\xBF\xBD";

template <typename Type, void (*FREE)(Type*)>
struct Free {
    void operator()(Type* object) const { FREE(object); }
};

template <typename Type, void (*FREE)(Type*)>
using Owned = std::unique_ptr<Type, Free<Type, FREE>>;

using Document = Owned<xmlDoc, xmlFreeDoc>;
using Validation = Owned<xmlSchemaValidCtxt, xmlSchemaFreeValidCtxt>;

void note(void* faults, xmlErrorPtr error) {
    *static_cast<std::string*>(faults) += error->message;
}

Document read(const std::string& text) {
    std::string faults;
    xmlSetStructuredErrorFunc(&faults, note);
    Document document(xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                                    XML_PARSE_NONET | XML_PARSE_HUGE));
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    REQUIRE_FOR(document && faults.empty(), faults + text);
    return document;
}

xmlSchema* schema() {
    static xmlSchema* const parsed = [] {
        xmlSchemaParserCtxt* const reader = xmlSchemaNewParserCtxt(DOCUMENT_SCHEMA);
        xmlSchema* const made = xmlSchemaParse(reader);
        xmlSchemaFreeParserCtxt(reader);
        return made;
    }();
    REQUIRE(parsed);
    return parsed;
}

void requireValid(xmlDoc* document, const std::string& text) {
    std::string faults;
    const Validation validation(xmlSchemaNewValidCtxt(schema()));
    xmlSchemaSetValidStructuredErrors(validation.get(), note, &faults);
    REQUIRE_FOR(xmlSchemaValidateDoc(validation.get(), document) == 0 && faults.empty(),
                faults + text);
}

std::optional<std::string> attribute(xmlNode* element, const char* name) {
    xmlChar* const value = xmlGetProp(element, reinterpret_cast<const xmlChar*>(name));
    if (!value)
        return std::nullopt;
    std::string text = reinterpret_cast<const char*>(value);
    xmlFree(value);
    return text;
}

xmlNode* child(xmlNode* parent, const char* name) {
    xmlNode* node = parent ? parent->children : nullptr;
    while (node && std::strcmp(reinterpret_cast<const char*>(node->name), name) != 0)
        node = node->next;
    return node;
}

bool isTail(const std::string& text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

// The number of bytes of the UTF-8 character at `at`; 0 if there is none.
std::size_t characterLength(const std::string& text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 1)
        return 1;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!isTail(text, at + i))
            return 0;
    }
    const auto second = static_cast<unsigned char>(text[at + 1]);
    const bool isWrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                         (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isWrong ? 0 : length;
}

bool isInXml(const std::string& character) {
    if (character.size() == 1)
        return character[0] >= ' ' || std::strchr("\t\n\r", character[0]);
    return character != "\xEF\xBF\xBE" && character != "\xEF\xBF\xBF";
}

// The text that a reader of the document must get for these bytes.
std::string inXml(const char* bytes) {
    const std::string text = bytes ? bytes : "";
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = characterLength(text, at);
        const std::string character = text.substr(at, length == 0 ? 1 : length);
        result += length > 0 && isInXml(character) ? character : REPLACEMENT;
        at += character.size();
    }
    return result;
}

void requireText(xmlNode* element, const char* name, const char* value) {
    const auto held = attribute(element, name);
    REQUIRE_FOR(!held || *held == inXml(value), name);
}

void requireNumber(xmlNode* element, const char* name, unsigned int value) {
    const auto held = attribute(element, name);
    REQUIRE_FOR(!held || *held == std::to_string(value), name);
}

void requireSecret(xmlNode* element, const char* name, const char* value) {
    const auto held = attribute(element, name);
    if (!held)
        return;
    if (!value) {
        REQUIRE(held->empty());
        return;
    }
    char* plain = nullptr;
    REQUIRE(Crypt::decrypt(nullptr, held->c_str(), &plain) == 0);
    const std::unique_ptr<char[]> owner(plain);
    REQUIRE_FOR(std::strcmp(plain, value) == 0, name);
}

void requireDescription(xmlNode* element, const WifiNetwork& network) {
    REQUIRE(attribute(element, "ssid") == inXml(network.getSsid()));
    requireText(element, "bssid", network.getBssid());
    requireNumber(element, "mode", network.getNetworkMode());
    requireNumber(element, "channel", network.getChannel());
    requireNumber(element, "strength", network.getStrength());
    requireNumber(element, "priority", network.getPriority());
    requireNumber(element, "status", network.getNetworkStatus());
}

void requireConfiguration(xmlNode* element, const WifiNetwork& network) {
    if (!element)
        return;
    requireNumber(element, "protocol", network.getProtocol());
    requireNumber(element, "authentication", network.getAuthAlg());
    requireNumber(element, "key_mgmt", network.getKeyManagement());
    requireNumber(element, "index", network.getWepIndex() + 1);
    requireText(element, "key1", network.getWepKey(0));
    requireText(element, "key4", network.getWepKey(3));
    requireText(element, "eapIdentity", network.getEAPIdentity());
    requireText(element, "eapAnonymousIdentity", network.getEAPAnonymousIdentity());
    requireText(element, "CACertificateFile", network.getCACertificate());
    requireText(element, "privateKeyFile2", network.getPrivateKeyFile2());
    requireText(element, "phase1", network.getPhase1Step());
    requireText(element, "phase2", network.getPhase2Step());
    requireSecret(element, "psk", network.getPsk());
    requireSecret(element, "eapPassword", network.getEAPPassword());
    requireSecret(element, "privateKeyPassword", network.getPrivateKeyPassword());
}

// One attribute of any bytes, and a number in any format.
void attributes(Input& input) {
    const std::string value = input.text();
    BufferedXWriter out;
    out.w("<a ");
    out.attr("v", value.c_str());
    out.w(' ');
    out.attrf("n", "%s", static_cast<int>(value.size()) + 1, value.c_str());
    out.w("/>");
    REQUIRE(out.length() == std::strlen(out.text()));
    const Document document = read(out.text());
    xmlNode* const element = xmlDocGetRootElement(document.get());
    REQUIRE(attribute(element, "v") == inXml(value.c_str()));
    REQUIRE(value.empty() || attribute(element, "n") == inXml(value.c_str()));
}

std::optional<std::string> maybeText(Input& input) {
    const std::string text = input.text(60);
    return text == "-" ? std::optional<std::string>() : text;
}

using SetText = bool (WifiNetwork::*)(const char*);

void set(WifiNetwork& network, SetText setter, Input& input) {
    const auto text = maybeText(input);
    (network.*setter)(text ? text->c_str() : nullptr);
}

void fill(WifiNetwork& network, Input& input) {
    using N = WifiNetwork;
    // Only small numbers, so that every type of security occurs.
    network.setProtocol(input.byte());
    network.setKeyManagement(input.byte());
    network.setPairwiseCiphers(input.byte());
    network.setGroupCiphers(input.byte());
    network.setAuthAlg(input.byte());
    network.setWepIndex(input.byte());
    network.setNetworkMode(input.byte());
    network.setNetworkStatus(input.number());
    network.setStrength(input.number());
    network.setChannel(input.number());
    network.setPriority(input.number());
    network.setSsidBroadcasted(input.flag());
    for (const SetText setter :
         {&N::setBssid, &N::setPsk, &N::setEAPIdentity, &N::setEAPAnonymousIdentity,
          &N::setEAPPassword, &N::setCACertificate, &N::setPhase1Step, &N::setPhase2Step,
          &N::setPrivateKeyPassword, &N::setPrivateKeyFile2})
        set(network, setter, input);
    network.setWepKey(0, input.text(30).c_str());
    network.setWepKey(3, input.text(30).c_str());
}

WifiHostSettings& settings() {
    static WifiHostSettings* const made = [] {
        ModelSupplicant::instance().reset();
        return WifiHostSettings::getInstance(nullptr);
    }();
    REQUIRE(ModelSupplicant::instance().commands > 0); // else the runner was not replaced
    return *made;
}

std::string documentOf(WifiHostSettings& host, bool full) {
    BufferedXWriter out;
    ErrorHandler errors;
    REQUIRE(host.getWifiHostSettingsXML(&out, &errors, full) && !errors.savedError());
    return out.text();
}

void requireNetworks(xmlDoc* document, WifiHostSettings& host, const std::string& ssid) {
    xmlNode* const database = child(xmlDocGetRootElement(document), "wifiNetworkDatabase");
    xmlNode* const element = child(database, "wifiNetwork");
    const WifiNetwork* const network = host.getNetwork(ADAPTER, ssid.c_str());
    REQUIRE((element != nullptr) == (network != nullptr));
    if (!network)
        return;
    requireDescription(element, *network);
    requireConfiguration(child(child(element, "wifiSecurityConfiguration"), "configuration"),
                         *network);
}

void documents(Input& input) {
    WifiHostSettings& host = settings();
    const bool full = input.flag();
    const std::string ssid = input.text(32);
    host.addNetwork(ADAPTER, ssid.c_str());
    const platwifi::SettingsLock lock(host);
    if (WifiNetwork* const network = host.getNetwork(ADAPTER, ssid.c_str()))
        fill(*network, input);
    const std::string text = documentOf(host, full);
    const Document document = read(text);
    if (full)
        requireValid(document.get(), text);
    if (!ssid.empty())
        requireNetworks(document.get(), host, ssid);
    // An empty SSID is never found and never removed: everything is loaded again, without it.
    ModelSupplicant::instance().reset();
    host.refreshAllSettings();
}

constexpr void (*PARTS[])(Input&) = {attributes, documents};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int keyFile = setenv("PLATFORM_KEY_FILE", KEY_FILE, 1);
    REQUIRE(keyFile == 0);
    Input input(data, size);
    PARTS[input.below(sizeof(PARTS) / sizeof(PARTS[0]))](input);
    return 0;
}
