#include "Pidin.h"

#include "support/Files.h"

namespace {

using test::lineOf;
using test::Listing;
using test::pidin;

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string ownArguments() {
    std::string text = test::contentOf("/proc/self/cmdline");
    text.pop_back();
    std::replace(text.begin(), text.end(), '\0', ' ');
    return text;
}

TEST(Pidin, ListsThisProcessWithItsArguments) {
    const Listing listing = pidin({"-iwlan0", "arg"});
    EXPECT_EQ(listing.status, 0);
    const std::string own = ownArguments();
    EXPECT_FALSE(own.empty());
    EXPECT_TRUE(endsWith(lineOf(listing, getpid()), own)) << lineOf(listing, getpid());
}

TEST(Pidin, NeedsNoArguments) {
    const Listing listing = pidin({});
    EXPECT_EQ(listing.status, 0);
    EXPECT_NE(lineOf(listing, getpid()), "");
}

TEST(Pidin, RefusesUnknownArguments) {
    for (const char* argument : {"-x", "--help", "args", ""}) {
        const Listing listing = pidin({argument});
        EXPECT_EQ(listing.status, 2) << argument;
        ASSERT_EQ(listing.lines.size(), 1u);
        EXPECT_EQ(listing.lines[0], "usage: pidin [-iINTERFACE] [arg]");
    }
}

} // namespace
