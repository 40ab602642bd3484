// The table of the causes, and the documents that repeat it.

#include "values/Cause.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

using cli::Cause;
using cli::CauseEntry;
using cli::entryOf;
using testing::HasSubstr;

namespace {

constexpr int COUNT = static_cast<int>(Cause::SUPPLICANT_GONE) + 1;

std::string textOf(const char* path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

TEST(ACause, HasAWordAStatusAndALineOfItsOwn) {
    std::set<std::string> words;
    std::set<int> statuses;
    for (int i = 0; i < COUNT; ++i) {
        const CauseEntry& entry = entryOf(static_cast<Cause>(i));
        EXPECT_EQ(entry.cause, static_cast<Cause>(i));
        EXPECT_EQ(entry.exitStatus, 10 + i);
        EXPECT_STRNE(entry.found, "");
        EXPECT_STRNE(entry.step, "");
        words.insert(entry.word);
        statuses.insert(entry.exitStatus);
    }
    EXPECT_EQ(words.size(), static_cast<std::size_t>(COUNT));
    EXPECT_EQ(statuses.size(), static_cast<std::size_t>(COUNT));
}

TEST(ACause, IsInTheDocuments) {
    const std::string rules = textOf(BEHAVIOUR_DOCUMENT);
    const std::string page = textOf(MANUAL_PAGE);
    for (int i = 0; i < COUNT; ++i) {
        const CauseEntry& entry = entryOf(static_cast<Cause>(i));
        const std::string status = std::to_string(entry.exitStatus);
        EXPECT_THAT(rules, HasSubstr("| `" + std::string(entry.word) + "` | " + status + " | "));
        EXPECT_THAT(rules, HasSubstr("; " + std::string(entry.step) + " |")) << entry.word;
        EXPECT_THAT(page, HasSubstr("\n.It " + status + " " + entry.word + "\n"));
    }
}

} // namespace
