#include "display/SignalBars.h"

#include "display/Text.h"
#include "model/Radio.h"

#include <cstdlib>
#include <gtest/gtest.h>

using namespace cli;

namespace {

TEST(ASignalInPercent, IsThatOfItsDbm) {
    struct {
        int dbm;
        int percent;
    } const rows[] = {{-150, 0}, {-101, 0},  {-100, 0},  {-99, 2}, {-75, 50},
                      {-51, 98}, {-50, 100}, {-20, 100}, {0, 100}, {2'000'000'000, 100}};
    for (const auto& row : rows)
        EXPECT_EQ(platwifi::percentOf(row.dbm), row.percent) << row.dbm;
}

TEST(SignalBars, AreOneForEachQuarter) {
    struct {
        int percent;
        const char* blocks;
        const char* plain;
    } const rows[] = {
        {0, "____", "____"},  {1, "▂___", "#___"},  {25, "▂___", "#___"},
        {26, "▂▄__", "##__"}, {50, "▂▄__", "##__"}, {51, "▂▄▆_", "###_"},
        {75, "▂▄▆_", "###_"}, {76, "▂▄▆█", "####"}, {100, "▂▄▆█", "####"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(signalBars(row.percent, true), row.blocks) << row.percent;
        EXPECT_EQ(signalBars(row.percent, false), row.plain) << row.percent;
        EXPECT_EQ(cellsOf(signalBars(row.percent, true)), 4u);
    }
}

TEST(SignalBars, AreBlocksInALocaleOfUtf8) {
    struct {
        const char* locale;
        bool isUtf8;
    } const rows[] = {{"C.UTF-8", true}, {"C", false}, {"POSIX", false}, {"no_such.UTF-8", false}};
    for (const auto& row : rows) {
        setenv("LC_ALL", row.locale, 1);
        EXPECT_EQ(isUtf8Locale(), row.isUtf8) << row.locale;
    }
    unsetenv("LC_ALL");
}

} // namespace
