// The check of the country, with the channels as wpa_supplicant 2.10 lists them.

#include "DoctorWorld.h"
#include "Findings.h"

namespace {

using test::isGood;
using test::isNote;
using testing::HasSubstr;

constexpr const char* OPEN = "Mode[G] Channels:\n 1 = 2412 MHz\n\n"
                             "Mode[A] Channels:\n 36 = 5180 MHz\n 52 = 5260 MHz (NO_IR) (DFS)\n";
constexpr const char* OF_THE_WORLD = "Mode[G] Channels:\n 1 = 2412 MHz\n 13 = 2472 MHz (NO_IR)\n\n"
                                     "Mode[A] Channels:\n 36 = 5180 MHz (NO_IR)\n"
                                     " 52 = 5260 MHz (NO_IR) (DFS)\n";
constexpr const char* WITHOUT_5_GHZ = "Mode[G] Channels:\n 5 = 2432 MHz\n";

class CountryCheck : public test::DoctorWorld {
protected:
    cli::Finding foundFor(const std::string& country, const std::string& channels) {
        m_standIn.reset();
        m_standIn.on({"-iwlan0", "get", "country"}).prints(country);
        m_standIn.on({"-iwlan0", "get_capability", "freq"}).prints(channels);
        return cli::checkCountry("");
    }
};

TEST_F(CountryCheck, ShowsTheCountry) {
    for (const char* const channels : {OPEN, WITHOUT_5_GHZ, "FAIL\n", "UNKNOWN COMMAND\n"}) {
        EXPECT_THAT(foundFor("DE", channels), isGood("is DE"));
        EXPECT_THAT(foundFor("12:34:56.789: DE\n", channels), isGood("is DE"));
    }
}

TEST_F(CountryCheck, NotesThatTheRulesOfTheWorldMayHide5GHz) {
    for (const char* const country :
         {"FAIL\n", "00", "12:34:56.789: 00\n", "", "UNKNOWN COMMAND\n"}) {
        for (const char* const channels : {OF_THE_WORLD, WITHOUT_5_GHZ, "FAIL\n", ""}) {
            EXPECT_THAT(foundFor(country, channels),
                        isNote(HasSubstr("access points at 5 and 6 GHz may stay hidden"),
                               HasSubstr("such as country=DE")))
                << country << channels;
        }
    }
}

// Another program, or an access point, has set the country in the kernel.
TEST_F(CountryCheck, AcceptsThatTheChannelsAreOpenWithoutACountry) {
    EXPECT_THAT(foundFor("FAIL\n", OPEN), isGood("is not set, but 5 GHz is open"));
}

TEST_F(CountryCheck, NotesThatTheSystemDoesNotKnowTheRulesOfTheCountry) {
    EXPECT_THAT(foundFor("DE", OF_THE_WORLD),
                isNote(HasSubstr("is DE, but"), HasSubstr("wireless-regdb")));
}

} // namespace
