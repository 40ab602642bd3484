#include "host/ScanResult.h"

#include "settings/replies/PrintedSsid.h"

#include <cstdlib>
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

struct Band {
    int first;   // frequency
    int last;    // frequency
    int base;    // frequency of channel 0
    int spacing; // MHz a channel
};

constexpr Band BANDS[] = {
    {2412, 2472, 2407, 5},
    {2484, 2484, 2414, 5}, // channel 14, not on the raster of the others
    {5160, 5885, 5000, 5},
    {5955, 7115, 5950, 5},
};

// A flag begins with the protocol, and has the key management anywhere behind it.
struct SecurityWord {
    const char* protocol;
    const char* keyManagement;
    const char* word;
};

constexpr SecurityWord WORDS[] = {
    {"WPA-", "PSK", "WPA-PSK"},
    {"WPA-", "EAP", "WPA-Enterprise"},
    {"WPA2-", "PSK", "WPA2-PSK"},
    {"WPA2-", "SAE", "WPA3-SAE"},
    {"WPA2-", "EAP", "WPA2-Enterprise"},
    {"WPA2-", "OWE", "OWE"},
    {"RSN-", "PSK", "WPA2-PSK"},
    {"RSN-", "SAE", "WPA3-SAE"},
    {"RSN-", "EAP", "WPA2-Enterprise"},
    {"RSN-", "OWE", "OWE"},
    {"WEP", "", "WEP"},
};

void addOnce(std::string& words, const std::string& word) {
    if (("/" + words + "/").find("/" + word + "/") == std::string::npos)
        words += (words.empty() ? "" : "/") + word;
}

void addWordsFor(const std::string& flag, std::string& words) {
    for (const SecurityWord& one : WORDS) {
        if (flag.rfind(one.protocol, 0) == 0 && flag.find(one.keyManagement) != std::string::npos)
            addOnce(words, one.word);
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
    for (const Band& band : BANDS) {
        if (frequency >= band.first && frequency <= band.last)
            return (frequency - band.base) / band.spacing;
    }
    return 0;
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
