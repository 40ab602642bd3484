#include "display/Table.h"

#include "TextLines.h"
#include "display/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using cli::cellsOf;
using cli::Console;
using cli::Table;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Not;

namespace {

std::vector<std::string> linesOf(const Table& table, unsigned int width) {
    Console console;
    console.width = width;
    std::ostringstream out;
    table.print(out, console);
    return test::linesOf(out.str());
}

Table everyScript() {
    Table table({{"SSID"}, {"dBm", Table::Align::RIGHT}, {"Security"}});
    table.add({"home", "-40", "WPA2-PSK"});
    table.add({"咖啡店", "-7", ""});
    table.add({"ที่บ้าน", "-100", "open"});
    table.add({"مقهى", "", "WPA3-SAE"});
    table.add({"📶 ", "-55", "WEP"});
    return table;
}

TEST(TheTable, AlignsEveryScript) {
    EXPECT_THAT(linesOf(everyScript(), Console::UNLIMITED), ElementsAre("SSID     dBm  Security", //
                                                                        "home     -40  WPA2-PSK", //
                                                                        "咖啡店    -7",           //
                                                                        "ที่บ้าน    -100  open",     //
                                                                        "مقهى          WPA3-SAE", //
                                                                        "📶       -55  WEP"));
}

TEST(TheTable, IsNeverWiderThanTheConsole) {
    const Table table = everyScript();
    for (unsigned int width = 1; width <= 200; ++width) {
        for (const std::string& line : linesOf(table, width)) {
            EXPECT_LE(cellsOf(line), width) << line;
            EXPECT_THAT(line, Not(EndsWith(" ")));
        }
    }
}

TEST(TheTable, EndsCutCellsWithAnEllipsis) {
    Table table({{"SSID"}, {"Security"}});
    table.add({"a network with a long name", "WPA2-Enterprise"});
    EXPECT_THAT(linesOf(table, 20), ElementsAre("SSID       Security", "a networ…  WPA2-Ent…"));
    EXPECT_THAT(linesOf(table, 3), ElementsAre("… …", "… …")) << "the gap is cut, too";
    EXPECT_THAT(linesOf(table, 1), ElementsAre("…", "…"));
}

TEST(TheTable, CutsTheWidestColumns) {
    Table table({{"A"}, {"B"}});
    table.add({"short", "a text that is much longer"});
    EXPECT_THAT(linesOf(table, 16), ElementsAre("A      B", "short  a text t…"));
}

TEST(TheTable, FillsMissingCells) {
    Table table({{"A"}, {"B"}});
    table.add({"alone"});
    EXPECT_THAT(linesOf(table, 80), ElementsAre("A      B", "alone"));
}

TEST(TheTable, HasABoldHeadingInColours) {
    Console console;
    console.hasColours = true;
    std::ostringstream out;
    Table({{"A"}}).print(out, console);
    EXPECT_EQ(out.str(), "\033[1mA\033[0m\n");
}

} // namespace
