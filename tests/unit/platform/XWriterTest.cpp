#include "platform/BufferedXWriter.h"

#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <climits>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <memory>
#include <optional>
#include <string>

namespace {

const std::string REPLACEMENT = "\xEF\xBF\xBD";

/// The attribute `a` of the root as a parser reads it; no value when the document is not
/// well-formed.
std::optional<std::string> readBack(const BufferedXWriter& out) {
    const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
        xmlReadMemory(out.text(), static_cast<int>(out.length()), nullptr, nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    if (!document)
        return std::nullopt;
    xmlNode* const root = xmlDocGetRootElement(document.get());
    const std::unique_ptr<xmlChar, void (*)(void*)> value(
        xmlGetProp(root, reinterpret_cast<const xmlChar*>("a")), xmlFree);
    if (!value)
        return std::nullopt;
    return reinterpret_cast<const char*>(value.get());
}

std::optional<std::string> readBack(const std::string& value) {
    BufferedXWriter out;
    out.w("<root ");
    out.attr("a", value.c_str());
    out.w("/>\n");
    return readBack(out);
}

TEST(XWriter, WritesRawTextUnchanged) {
    BufferedXWriter out;
    EXPECT_STREQ(out.text(), "");
    out.w("<a & b");
    out.w(' ');
    out.w(static_cast<const char*>(nullptr));
    out.w('\0');
    out.w(">\n");
    EXPECT_STREQ(out.text(), "<a & b >\n");
    EXPECT_EQ(out.length(), 9u);
}

TEST(XWriter, WritesAttributesAndNothingWithoutAName) {
    const struct {
        const char* name;
        const char* value;
        const char* written;
    } rows[] = {
        {"ssid", "home", "ssid=\"home\""},
        {"a", "&<>\"'\t\n\r.", "a=\"&amp;&lt;&gt;&quot;&apos;&#9;&#10;&#13;.\""},
        {"a", nullptr, "a=\"\""},
        {nullptr, "x", ""},
        {"", "x", ""},
    };
    for (const auto& row : rows) {
        BufferedXWriter out;
        out.attr(row.name, row.value);
        EXPECT_STREQ(out.text(), row.written);
    }
    BufferedXWriter out;
    out.attrf(nullptr, "%u", 32, 1U);
    EXPECT_STREQ(out.text(), "");
}

TEST(XWriter, RestoresTextOfEveryLength) {
    for (const char* text : {"", "plain", "  two  blanks ", "&<>\"'\t\n\r &amp; ]]>", "\xC3\xA9",
                             "\xE4\xB8\xAD\xE6\x96\x87", "\xF0\x9F\x98\x80", "\x7F", "\xC2\x80",
                             "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBD", "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(readBack(text), text);
    const std::string longText(100000, 'x');
    EXPECT_EQ(readBack(longText), longText);
}

// XML-19
TEST(XWriter, ReplacesWhatXmlCannotContain) {
    for (const char* one :
         {"\x01", "\x0B", "\x1F", "\xFF", "\xC3", "\x80", "\xEF\xBF\xBE", "\xEF\xBF\xBF"})
        EXPECT_EQ(readBack(std::string("<") + one + ">"), "<" + REPLACEMENT + ">");
    EXPECT_EQ(readBack("\xC0\x80"), REPLACEMENT + REPLACEMENT);
    EXPECT_EQ(readBack("\xED\xA0\x80"), REPLACEMENT + REPLACEMENT + REPLACEMENT);
}

struct Piece {
    std::string written;
    std::string read;
};

// No sequence begins with bytes that could complete the one before.
const Piece PIECES[] = {
    {"a", "a"},
    {"&", "&"},
    {"<!--", "<!--"},
    {"\"", "\""},
    {"\n", "\n"},
    {" ", " "},
    {"\xC3\xA9", "\xC3\xA9"},
    {"\xE4\xB8\xAD", "\xE4\xB8\xAD"},
    {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
    {"\x02", REPLACEMENT},
    {"\xC3", REPLACEMENT},
    {"\xFF", REPLACEMENT},
    {"\xEF\xBF\xBF", REPLACEMENT},
    {"\xE4\xB8", REPLACEMENT + REPLACEMENT},
};

TEST(XWriter, RestoresValidTextBetweenInvalidBytes) {
    std::mt19937 random(7);
    std::uniform_int_distribution<std::size_t> any(0, std::size(PIECES) - 1);
    for (int i = 0; i < 3000; ++i) {
        Piece text;
        for (std::size_t count = any(random); count > 0; --count) {
            const Piece& piece = PIECES[any(random)];
            text.written += piece.written;
            text.read += piece.read;
        }
        EXPECT_EQ(readBack(text.written), text.read);
    }
}

TEST(XWriter, WritesAWellFormedDocumentForAnyBytes) {
    std::mt19937 random(8);
    for (int i = 0; i < 20000; ++i)
        EXPECT_TRUE(readBack(test::randomBytes(random)));
}

TEST(XWriterFormat, WritesNumbers) {
    BufferedXWriter out;
    out.attrf("a", "%u", 32, 4294967295U);
    out.w(' ');
    out.attrf("b", "%d/%s", 32, -1, "<");
    EXPECT_STREQ(out.text(), "a=\"4294967295\" b=\"-1/&lt;\"");
}

TEST(XWriterFormat, CutsAtTheSize) {
    BufferedXWriter out;
    out.attrf("a", "%u", 4, 123456U);
    out.attrf("b", "%u", 7, 123456U);
    out.attrf("c", "%u", 6, 123456U);
    EXPECT_STREQ(out.text(), "a=\"123\"b=\"123456\"c=\"12345\"");
}

TEST(XWriterFormat, WritesAnEmptyValueForASizeOfOneOrLess) {
    for (const int size : {1, 0, -1, INT_MIN}) {
        BufferedXWriter out;
        out.attrf("a", "%u", size, 7U);
        EXPECT_STREQ(out.text(), "a=\"\"") << size;
    }
}

TEST(XWriterFormat, AcceptsTheLargestSize) {
    BufferedXWriter out;
    out.attrf("a", "%s", INT_MAX, std::string(70000, 'x').c_str());
    EXPECT_EQ(out.length(), 70000u + 4);
}

TEST(XWriterFormat, ReplacesACharacterThatIsCut) {
    BufferedXWriter out;
    out.w("<root ");
    out.attrf("a", "%s", 3, "x\xC3\xA9");
    out.w("/>");
    EXPECT_EQ(readBack(out), "x" + REPLACEMENT);
}

} // namespace
