#include "completion/Candidates.h"

#include "client/Listing.h"
#include "commands/Arguments.h"
#include "commands/CommandNames.h"
#include "display/Text.h"
#include "edits/PropertyRules.h"
#include "edits/PropertyTable.h"
#include "host/Ssid.h"
#include "settings/replies/PrintedSsid.h"
#include "values/Texts.h"

#include <algorithm>
#include <filesystem>

namespace cli {
namespace {

Candidates propertyNames() {
    Candidates candidates;
    for (const Property& property : properties()) {
        if (property.entry != Entry::REPORTED)
            candidates.push_back({property.name + std::string("="), false});
    }
    return candidates;
}

bool isFileCandidate(const std::string& name, const std::string& beginning) {
    const bool isHidden = name[0] == '.' && beginning.empty();
    return beginsWith(name, beginning) && !isHidden && printable(name) == name;
}

// The paths that begin with this text, in order, with "/" behind a folder. A hidden file only if its dot
// is given; no file whose name a terminal cannot show.
std::vector<std::string> pathsThatBeginWith(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    const std::string beginning = path.substr(folder.size());
    std::vector<std::string> paths;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const std::string name = entry->path().filename();
        if (isFileCandidate(name, beginning))
            paths.push_back(folder + name + (entry->is_directory(unknown) ? "/" : ""));
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

Candidates files(const std::string& prefix, const std::string& path) {
    Candidates candidates;
    for (const std::string& file : pathsThatBeginWith(path))
        candidates.push_back({prefix + file, file.back() != '/'});
    return candidates;
}

Candidates secretValues(const std::string& prefix, const std::string& value) {
    if (beginsWith(value, "@"))
        return files(prefix + "@", value.substr(1));
    return {{prefix + "-"}, {prefix + "@", false}};
}

Candidates valuesOf(const Property& property, const std::string& value) {
    const std::string prefix = property.name + std::string("=");
    if (isSecret(property))
        return secretValues(prefix, value);
    if (property.take == takePath)
        return files(prefix, value);
    Candidates candidates;
    for (const Word& word : property.words)
        candidates.push_back({prefix + word.text});
    return candidates;
}

// What to type for an SSID: its bytes, if a terminal can show them and they are not read in another way.
std::string typedFor(const std::string& ssid) {
    const bool isPlain = printable(ssid) == ssid && typedSsid(ssid) == ssid;
    return isPlain ? ssid : platwifi::printedSsid(ssid);
}

} // namespace

Candidates commandWords() {
    Candidates candidates;
    for (const std::string& name : commandNames())
        candidates.push_back({name});
    return candidates;
}

Candidates options(const std::string& command) {
    Candidates candidates;
    for (const Option& option : optionsOf(command))
        candidates.push_back({option.name});
    return candidates;
}

Candidates interfaces(const std::string& prefix) {
    Candidates candidates;
    for (const std::string& adapter : listedAdapters())
        candidates.push_back({prefix + adapter});
    return candidates;
}

Candidates networks(bool allowsOptions) {
    Candidates candidates;
    const auto adapters = listedAdapters();
    if (adapters.empty())
        return candidates;
    bool ok = false;
    for (const ListedNetwork& network : listedNetworks(adapters.front(), ok)) {
        const std::string typed = typedFor(network.ssid);
        if (!typed.empty() && !(allowsOptions && beginsWith(typed, "-")))
            candidates.push_back({typed});
    }
    return candidates;
}

Candidates assignments(const std::string& word) {
    const std::size_t sign = word.find('=');
    if (sign == std::string::npos)
        return propertyNames();
    for (const Property& property : properties()) {
        if (property.name == word.substr(0, sign) && property.entry != Entry::REPORTED)
            return valuesOf(property, word.substr(sign + 1));
    }
    return {};
}

} // namespace cli
