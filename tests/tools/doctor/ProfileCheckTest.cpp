// The check of the profile that the environment chooses.

#include "DoctorWorld.h"
#include "Findings.h"
#include "client/ProfileInUse.h"

namespace {

using platwifi::Profile;
using test::isBad;
using test::isGood;
using test::isNote;
using testing::HasSubstr;

class ProfileCheck : public test::DoctorWorld {};

TEST_F(ProfileCheck, AcceptsTheProfileOfThisProgram) {
    EXPECT_THAT(cli::checkProfile(""), isGood("modern"));
    setProfile("modern");
    EXPECT_THAT(cli::checkProfile(""), isGood("modern"));
    EXPECT_EQ(cli::profileInUse(), Profile::MODERN);
}

TEST_F(ProfileCheck, NotesTheProfileOfTheDevice) {
    setProfile("device");
    EXPECT_THAT(cli::checkProfile(""), isNote(HasSubstr("follow the rules of the device"),
                                              HasSubstr("unset PLATWIFI_PROFILE")));
    EXPECT_EQ(cli::profileInUse(), Profile::DEVICE);
}

TEST_F(ProfileCheck, ReportsAValueThatIsNoProfile) {
    for (const char* const value : {"Modern", "modern ", "", "today"}) {
        setProfile(value);
        EXPECT_THAT(cli::checkProfile(""),
                    isBad(HasSubstr("PLATWIFI_PROFILE is " + std::string(value)),
                          "unset PLATWIFI_PROFILE, or set it to modern"));
        EXPECT_EQ(cli::profileInUse(), Profile::DEVICE) << value;
    }
}

} // namespace
