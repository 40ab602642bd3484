#include "commands/CommandTable.h"

#include "commands/Commands.h"
#include "display/Wrap.h"
#include "edits/PropertyTable.h"

#include <iomanip>
#include <sstream>

namespace cli {
namespace {

constexpr int NAME_COLUMN = 22;
constexpr int WORD_COLUMN = NAME_COLUMN + 4;
constexpr int HELP_WIDTH = 80;

// The end of the help of a command whose examples are `Lines`.
template <const auto& Lines>
std::string examples() {
    return std::string("Examples:\n") + Lines;
}

constexpr char ADAPTERS[] = "  platwifi adapters";
constexpr char STATUS[] = "  platwifi status\n"
                          "  platwifi status --json | jq -r .state";
constexpr char SCAN[] = "  platwifi scan\n"
                        "  platwifi scan --sort channel\n"
                        "  platwifi scan --json | jq -r '.[].ssid'";
constexpr char MONITOR[] =
    "  platwifi monitor\n"
    "  platwifi monitor --json | jq -r 'select(.event == \"connected\").ssid'";
constexpr char NETWORKS[] = "  platwifi networks";
constexpr char SHOW[] = "  platwifi show home";
constexpr char REMOVE[] = "  platwifi remove home";
constexpr char CONNECT[] = "  platwifi connect home\n"
                           "  platwifi connect --timeout 60 home && echo online";
constexpr char DISCONNECT[] = "  platwifi disconnect";
constexpr char ROAM[] = "  platwifi roam";
constexpr char JOIN[] = "  platwifi join home                      asks for the key\n"
                        "  platwifi join home psk=@/run/secrets/home\n"
                        "  platwifi join cellar --hidden\n"
                        "  platwifi join work --eap PEAP CACertificateFile=/etc/ssl/work.pem";
constexpr char FORGET[] = "  platwifi forget home";
constexpr char XML[] = "  platwifi xml\n"
                       "  platwifi xml --full > state.xml";
constexpr char DUMP[] = "  platwifi dump      all secrets are shown: keep this private";
constexpr char DOCTOR[] = "  platwifi doctor";
constexpr char HELP[] = "  platwifi help\n"
                        "  platwifi help add";
constexpr char SET[] = "  platwifi set home priority=5\n"
                       "  platwifi set home psk=-                 asks for the key\n"
                       "  platwifi set home psk=@/run/secrets/home";
constexpr char ADD[] = "  platwifi add home psk=-                 asks for the key\n"
                       "  platwifi add cafe key_mgmt=NONE         an open network\n"
                       "  platwifi add work key_mgmt=WPA-EAP eap=PEAP eapIdentity=me \\\n"
                       "      eapPassword=@password phase2=auth=MSCHAPV2 \\\n"
                       "      CACertificateFile=/etc/ssl/work.pem";

std::string wordsOf(const Property& property) {
    std::string text;
    for (const Word& word : property.words)
        text += std::string(text.empty() ? "" : " ") + word.text;
    return text;
}

std::string lineFor(const Property& property) {
    std::ostringstream line;
    line << "  " << std::left << std::setw(NAME_COLUMN) << property.name << property.meaning
         << (isSecret(property) ? " (secret)" : "") << '\n';
    if (property.words.empty())
        return line.str();
    for (const std::string& words : wrapped(wordsOf(property), HELP_WIDTH - WORD_COLUMN))
        line << std::string(WORD_COLUMN, ' ') << words << '\n';
    return line.str();
}

std::string propertyList() {
    std::string text = "Properties:\n";
    for (const Property& property : properties()) {
        if (property.entry != Entry::REPORTED)
            text += lineFor(property);
    }
    return text +
           "key_mgmt, protocol, encryption and eap take several words, separated by commas.\n"
           "A secret is not written on the command line: NAME=- reads a line of standard\n"
           "input, NAME=@FILE the first line of a file. NAME= clears a text or a password.\n";
}

template <const auto& Lines>
std::string propertiesAndExamples() {
    return propertyList() + '\n' + examples<Lines>();
}

// clang-format off
const std::vector<Command> COMMANDS = {
    {"adapters", JSON, showAdapters, "list the interfaces that the supplicant serves", examples<ADAPTERS>},
    {"status", JSON, showStatus, "tell what the supplicant is doing", examples<STATUS>},
    {"scan", SORT | JSON, scan, "look for access points in range", examples<SCAN>},
    {"monitor", JSON, monitor, "show events as they come, until Ctrl-C", examples<MONITOR>},
    {"networks", JSON, listNetworks, "list the configured networks", examples<NETWORKS>, "list"},
    {"show", SSID | JSON, showNetwork, "show a configured network", examples<SHOW>},
    {"set", SSID | ASSIGNMENTS | JSON, setProperties, "change a network, and save", propertiesAndExamples<SET>},
    {"add", SSID | NEW_SSID | OPTIONAL_ASSIGNMENTS | JSON, addNetwork, "add a network, and save", propertiesAndExamples<ADD>},
    {"remove", SSID | JSON, removeNetwork, "remove a network, and save", examples<REMOVE>, "rm"},
    {"connect", SSID | TIMEOUT | JSON, connectNetwork, "connect to a network, and wait for it", examples<CONNECT>},
    {"join", SSID | OPTIONAL_ASSIGNMENTS | TIMEOUT | HIDDEN | EAP | JSON, joinNetwork, "connect to a network in range, and save it", propertiesAndExamples<JOIN>},
    {"forget", SSID | JSON, forgetNetwork, "disconnect from a network, remove it, and save", examples<FORGET>},
    {"disconnect", OPTIONAL_SSID | JSON, disconnectNetwork, "end the connection", examples<DISCONNECT>},
    {"roam", JSON, roam, "let the supplicant choose among all networks", examples<ROAM>},
    {"xml", FULL, writeXml, "print the whole state as an XML document", examples<XML>},
    {"dump", 0, dump, "print everything in memory, secrets in plain", examples<DUMP>},
    {"doctor", JSON, doctor, "look for what is wrong on this host", examples<DOCTOR>},
    {"help", TOPIC | NO_INTERFACE, showHelp, "explain the program, or a command", examples<HELP>},
};
// clang-format on

} // namespace

const std::vector<Command>& commands() {
    return COMMANDS;
}

std::string generalEpilogue() {
    return "platwifi help COMMAND explains a command and its options, which may stand before\n"
           "the command as well.\n\n"
           "Exit status: 0 it is done, 1 it did not work, 2 wrong use. Standard error tells\n"
           "what is wrong, and what to do next.\n\n"
           "Examples:\n"
           "  platwifi doctor\n"
           "  platwifi scan\n"
           "  platwifi add home psk=-\n"
           "  platwifi connect home\n";
}

} // namespace cli
