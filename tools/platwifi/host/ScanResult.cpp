#include "host/ScanResult.h"

#include "model/Radio.h"
#include "settings/replies/PrintedSsid.h"
#include "values/Texts.h"

#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

namespace cli {
namespace {

constexpr std::size_t FIELDS = 5;

std::vector<std::string> fieldsOf(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t start = 0;
    for (std::size_t tab = line.find('\t'); tab != std::string::npos && fields.size() + 1 < FIELDS;
         tab = line.find('\t', start)) {
        fields.push_back(line.substr(start, tab - start));
        start = tab + 1;
    }
    fields.push_back(line.substr(start));
    return fields;
}

struct SecurityWord {
    const char* keyManagement; // as the supplicant prints it
    const char* wpa;           // the word with the first WPA; null where that does not know it
    const char* rsn;           // the word with RSN, which is WPA2 and WPA3
};

// A word that begins with another one stands before it.
// clang-format off
constexpr SecurityWord WORDS[] = {
    {"EAP-SUITE-B-192", nullptr, "WPA3-Enterprise-192"},
    {"EAP-SUITE-B", nullptr, "WPA2-Enterprise-Suite-B"},
    {"EAP-SHA256", nullptr, "WPA2-Enterprise-SHA256"},
    {"EAP-SHA384", nullptr, "WPA3-Enterprise-SHA384"},
    {"EAP", "WPA-Enterprise", "WPA2-Enterprise"},
    {"PSK-SHA256", nullptr, "WPA2-PSK-SHA256"},
    {"PSK", "WPA-PSK", "WPA2-PSK"},
    {"SAE-EXT-KEY", nullptr, "WPA3-SAE"},
    {"SAE", nullptr, "WPA3-SAE"},
    {"FT/EAP", nullptr, "FT-Enterprise"},
    {"FT/PSK", nullptr, "FT-PSK"},
    {"FT/SAE-EXT-KEY", nullptr, "FT-SAE"},
    {"FT/SAE", nullptr, "FT-SAE"},
    {"FILS-SHA256", nullptr, "FILS"},
    {"FILS-SHA384", nullptr, "FILS"},
    {"OWE", nullptr, "OWE"},
    {"DPP", nullptr, "DPP"},
};
// clang-format on

struct Protocol {
    const char* prefix; // of the flag
    const char* SecurityWord::*word;
    const char* otherwise; // the word where no key management is known: such a network is not open
};

constexpr Protocol PROTOCOLS[] = {
    {"WPA-", &SecurityWord::wpa, "WPA"},
    {"WPA2-", &SecurityWord::rsn, "WPA2"},
    {"RSN-", &SecurityWord::rsn, "WPA2"},
};

// Flags that stand for themselves.
struct FlagWord {
    const char* flag;
    const char* word;
};

constexpr FlagWord FLAG_WORDS[] = {
    {"WEP", "WEP"},
    {"OWE-TRANS-OPEN", "OWE-transition"}, // open, beside a hidden access point with OWE
};

void addOnce(std::string& words, const std::string& word) {
    if (("/" + words + "/").find("/" + word + "/") == std::string::npos)
        words += (words.empty() ? "" : "/") + word;
}

// The last one of a list has the ciphers behind it.
const SecurityWord* wordFor(const std::string& keyManagement) {
    for (const SecurityWord& word : WORDS) {
        if (beginsWith(keyManagement + "-", word.keyManagement + std::string("-")))
            return &word;
    }
    return nullptr;
}

void addWordsOf(const Protocol& protocol, const std::string& list, std::string& words) {
    bool isKnown = false;
    std::istringstream entries(list);
    for (std::string entry; std::getline(entries, entry, '+');) {
        const SecurityWord* const word = wordFor(entry);
        if (!word || !(word->*protocol.word))
            continue;
        addOnce(words, word->*protocol.word);
        isKnown = true;
    }
    if (!isKnown)
        addOnce(words, protocol.otherwise);
}

void addWordsFor(const std::string& flag, std::string& words) {
    for (const FlagWord& one : FLAG_WORDS) {
        if (flag == one.flag)
            addOnce(words, one.word);
    }
    for (const Protocol& protocol : PROTOCOLS) {
        if (beginsWith(flag, protocol.prefix))
            addWordsOf(protocol, flag.substr(std::strlen(protocol.prefix)), words);
    }
}

} // namespace

std::optional<ScanResult> ScanResult::of(const std::string& line) {
    const auto fields = fieldsOf(line);
    if (fields.size() != FIELDS)
        return std::nullopt;
    return ScanResult{fields[0], std::atoi(fields[1].c_str()), std::atoi(fields[2].c_str()),
                      fields[3], platwifi::bytesOfPrinted(fields[4])};
}

int channelOf(int frequency) {
    return platwifi::channelInBands(frequency);
}

std::string bandOf(int frequency) {
    const platwifi::Band* const band = platwifi::bandAt(frequency);
    return band ? band->name : "";
}

std::string securityOf(const std::string& flags) {
    std::string words;
    std::size_t end = 0;
    for (std::size_t start = flags.find('['); start != std::string::npos;
         start = flags.find('[', end)) {
        end = flags.find(']', start);
        addWordsFor(flags.substr(start + 1, end - start - 1), words);
        if (end == std::string::npos)
            break;
    }
    return words.empty() ? "open" : words;
}

} // namespace cli
