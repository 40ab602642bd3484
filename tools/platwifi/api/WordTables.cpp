#include "api/WordTables.h"

#include "commands/EventReport.h"
#include "edits/PropertyTable.h"
#include "host/BestSecurity.h"
#include "model/Vocabulary.h"
#include "values/Cause.h"

namespace cli::api {
namespace {

using Texts = std::vector<std::string>;

template <typename Enumeration, typename ToWord>
Texts wordsUpTo(Enumeration last, ToWord toWord) {
    Texts words;
    for (int i = 0; i <= static_cast<int>(last); ++i)
        words.emplace_back(toWord(static_cast<Enumeration>(i)));
    return words;
}

Texts textsOf(platwifi::Words words) {
    Texts texts;
    for (const platwifi::Word& word : words)
        texts.emplace_back(word.text);
    return texts;
}

Texts reasons() {
    return wordsUpTo(Cause::SUPPLICANT_GONE, [](Cause cause) { return entryOf(cause).word; });
}

Texts events() {
    return wordsUpTo(Event::Kind::OTHER, nameOf);
}

Texts states() {
    Texts words = textsOf(platwifi::STATE_WORDS);
    words.emplace_back(platwifi::UNKNOWN_WORD);
    return words;
}

Texts propertyNames() {
    Texts names;
    for (const Property& property : properties())
        names.emplace_back(property.name);
    return names;
}

struct Table {
    const char* name;
    Texts (*words)();
};

constexpr Table TABLES[] = {
    {"reason", reasons},
    {"event", events},
    {"security", securityNames},
    {"state", states},
    {"keyManagement", [] { return textsOf(platwifi::KEY_MANAGEMENT_WORDS); }},
    {"frameProtection", [] { return textsOf(platwifi::PMF_WORDS); }},
    {"eap", [] { return textsOf(platwifi::EAP_WORDS); }},
    {"property", propertyNames},
};

} // namespace

std::vector<std::string> wordsOf(const std::string& table) {
    for (const Table& row : TABLES) {
        if (table == row.name)
            return row.words();
    }
    return {};
}

} // namespace cli::api
