#include "host/Ssid.h"

#include "values/Failure.h"

#include <gtest/gtest.h>

using namespace cli;

namespace {

struct Notation {
    const char* written;
    std::string bytes;
};

const Notation NOTATIONS[] = {
    {"home", "home"},
    {R"(caf\xc3\xa9)", "café"},
    {R"(CAF\xC3\x89)", "CAFÉ"},
    {R"(a\\b)", R"(a\b)"},
    {R"(say \"hi\")", R"(say "hi")"},
    {R"(\e[0m)", "\033[0m"},
    {R"(a\nb\rc\td)", "a\nb\rc\td"},
    {R"(\\x41)", R"(\x41)"},
    {R"(\x00)", std::string(1, '\0')},
    {R"(\)", R"(\)"},
    {R"(a\)", R"(a\)"},
    {R"(\x)", R"(\x)"},
    {R"(\x4)", R"(\x4)"},
    {R"(\x4g)", R"(\x4g)"},
    {R"(\q)", R"(\q)"},
    {"", ""},
};

TEST(Ssid, IsReadFromTheNotationOfTheClient) {
    for (const Notation& one : NOTATIONS)
        EXPECT_EQ(bytesOfSsid(one.written), one.bytes) << one.written;
}

TEST(Ssid, IsShownOnATerminal) {
    EXPECT_EQ(shownSsid(R"(caf\xc3\xa9)"), "café");
    EXPECT_EQ(shownSsid(R"(\x1b[2J)"), R"(\x1b[2J)");
    EXPECT_EQ(shownSsid(R"(\xff\xfe)"), R"(\xff\xfe)");
    EXPECT_EQ(shownSsid(R"(a\nb)"), R"(a\x0ab)");
}

TEST(Ssid, WithoutAVisibleByteIsHidden) {
    for (const char* notation : {"", R"(\x00)", R"(\x00\x00\x00)"})
        EXPECT_EQ(shownSsid(notation), "(hidden)");
    EXPECT_NE(shownSsid(R"(\x00a)"), "(hidden)");
}

TEST(Ssid, IsUtf8InJsonOrElseTheNotation) {
    EXPECT_EQ(plainSsid(R"(caf\xc3\xa9)"), "café");
    EXPECT_EQ(plainSsid(R"(\xff)"), R"(\xff)");
    EXPECT_EQ(plainSsid(R"(\x00)"), R"(\x00)");
}

TEST(Ssid, IsTheSameInBothNotations) {
    EXPECT_TRUE(isSameSsid("café", R"(caf\xc3\xa9)"));
    EXPECT_TRUE(isSameSsid(R"(caf\xc3\xa9)", "café"));
    EXPECT_TRUE(isSameSsid(R"(a\\b)", R"(a\b)"));
    EXPECT_FALSE(isSameSsid("home", "Home"));
    EXPECT_FALSE(isSameSsid("home", "home "));
}

// Otherwise a user could not type a backslash before the letter of an escape.
TEST(Ssid, IsTheSameAsItsPlainText) {
    EXPECT_TRUE(isSameSsid(R"(C:\\new)", R"(C:\new)"));
    EXPECT_TRUE(isSameSsid(R"(C:\new)", R"(C:\\new)"));
}

TEST(Ssid, HasOneTo32Bytes) {
    EXPECT_NO_THROW(requireSsid("a"));
    EXPECT_NO_THROW(requireSsid(std::string(32, 'a')));
    EXPECT_THROW(requireSsid(""), WrongUse);
    EXPECT_THROW(requireSsid(std::string(33, 'a')), WrongUse);
    EXPECT_THROW(requireSsid("Домашняя сеть №1"
                             "xyz"),
                 WrongUse)
        << "bytes, not characters";
}

TEST(Ssid, IsMeasuredInBytesNotInTheNotation) {
    std::string notation;
    for (int i = 0; i < 32; ++i)
        notation += R"(\xff)";
    EXPECT_NO_THROW(requireSsid(notation));
    EXPECT_THROW(requireSsid(notation + "a"), WrongUse);
}

} // namespace
