#include "host/Ssid.h"

#include "values/Failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace cli;
using testing::Contains;

namespace {

const std::string NUL(1, '\0');

TEST(Ssid, IsShownOnATerminal) {
    EXPECT_EQ(shownSsid("café"), "café");
    EXPECT_EQ(shownSsid("\x1b[2J"), R"(\x1b[2J)");
    EXPECT_EQ(shownSsid("\xff\xfe"), R"(\xff\xfe)");
    EXPECT_EQ(shownSsid("a\nb"), R"(a\x0ab)");
    EXPECT_EQ(shownSsid(R"(a\nb)"), R"(a\nb)");
}

TEST(Ssid, WithoutAVisibleByteIsHidden) {
    for (const std::string& ssid : {std::string(), NUL, NUL + NUL + NUL})
        EXPECT_EQ(shownSsid(ssid), "(hidden)");
    EXPECT_EQ(shownSsid(NUL + "a"), R"(\x00a)");
}

TEST(Ssid, IsTextInJsonOrHasEscapes) {
    EXPECT_EQ(plainSsid("café"), "café");
    EXPECT_EQ(plainSsid("a\nb"), "a\nb");
    EXPECT_EQ(plainSsid("\xff"), R"(\xff)");
    EXPECT_EQ(plainSsid(NUL), R"(\x00)");
}

TEST(Ssid, IsTypedAsItIsShown) {
    for (const std::string& ssid :
         {std::string("café"), std::string("\xff\xfe"), std::string("a\nb"),
          std::string(R"(C:\new)"), std::string(32, '\xd0')})
        EXPECT_EQ(typedSsid(shownSsid(ssid)), ssid);
    EXPECT_EQ(typedSsid(R"(\x41)"), R"(\x41)") << "an A would be shown as A";
}

TEST(Ssid, IsReadAsItsBytesFirst) {
    for (const char* const ssid : {"home", R"(\xff)", R"(C:\new)"})
        EXPECT_EQ(readingsOf(ssid).front(), ssid);
}

TEST(Ssid, IsReadAsTheClientPrintsIt) {
    EXPECT_THAT(readingsOf(R"(caf\xc3\xa9)"), Contains("café"));
    EXPECT_THAT(readingsOf("café"), Contains(R"(caf\xc3\xa9)"));
    EXPECT_THAT(readingsOf(R"(say \"hi\")"), Contains(R"(say "hi")"));
}

TEST(Ssid, IsTheSameAsTheClientPrintsIt) {
    EXPECT_TRUE(isSameSsid("café", R"(caf\xc3\xa9)"));
    EXPECT_TRUE(isSameSsid(R"(caf\xc3\xa9)", "café"));
    EXPECT_TRUE(isSameSsid(R"(a\\b)", R"(a\b)"));
    EXPECT_FALSE(isSameSsid("home", "Home"));
    EXPECT_FALSE(isSameSsid("home", "home "));
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
