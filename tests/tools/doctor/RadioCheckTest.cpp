// The check of the switches of a radio.

#include "DoctorWorld.h"
#include "Findings.h"

#include <filesystem>

namespace {

using test::isBad;
using test::isGood;
using test::putFile;
using testing::HasSubstr;

constexpr const char* UNBLOCK = "switch it on as root: rfkill unblock wifi";

class RadioCheck : public test::DoctorWorld {
protected:
    static void addSwitch(const std::string& name, const std::string& type) {
        const std::string folder = "/sys/class/rfkill/rfkill10";
        putFile(folder + "/name", name + "\n");
        putFile(folder + "/type", type + "\n");
        putFile(folder + "/soft", "1\n");
        putFile(folder + "/hard", "0\n");
    }
};

TEST_F(RadioCheck, AcceptsARadioThatNoSwitchBlocks) {
    EXPECT_THAT(cli::checkRadio(""), isGood("no switch blocks the radio of wlan0"));
}

TEST_F(RadioCheck, ReportsABlockBySoftware) {
    putFile(RADIO_SWITCH + "/soft", "1\n");
    for (const char* const iface : {"", "wlan0"}) {
        EXPECT_THAT(
            cli::checkRadio(iface),
            isBad("the radio of wlan0 is switched off by software (rfkill, soft block)", UNBLOCK));
    }
}

TEST_F(RadioCheck, ReportsABlockByTheDevice) {
    putFile(RADIO_SWITCH + "/hard", "1\n");
    const auto isHard = HasSubstr("switched off by the device (rfkill, hard block)");
    EXPECT_THAT(cli::checkRadio(""), isBad(isHard, testing::Not(HasSubstr("unblock"))));
    putFile(RADIO_SWITCH + "/soft", "1\n");
    EXPECT_THAT(cli::checkRadio(""), isBad(isHard, HasSubstr("rfkill unblock wifi")));
}

TEST_F(RadioCheck, IgnoresTheSwitchOfAnotherRadioAndOfBluetooth) {
    addSwitch("phy1", "wlan");
    EXPECT_THAT(cli::checkRadio(""), isGood());
    addSwitch("hci0", "bluetooth");
    EXPECT_THAT(cli::checkRadio(""), isGood());
}

TEST_F(RadioCheck, ReportsASwitchOfTheDeviceForAllRadios) {
    addSwitch("maker_wlan_sw", "wlan");
    EXPECT_THAT(cli::checkRadio("wlan0"), isBad());
}

// A supplicant may refuse to start where the radio is off.
TEST_F(RadioCheck, NeedsNoSupplicant) {
    std::filesystem::remove_all(FOLDER);
    putFile(RADIO_SWITCH + "/soft", "1\n");
    EXPECT_THAT(cli::checkRadio(""), isBad(HasSubstr("the radio of wlan0")));
    std::filesystem::remove_all("/sys/class/net");
    EXPECT_THAT(cli::checkRadio(""), isBad(HasSubstr("the radio is")));
}

TEST_F(RadioCheck, AcceptsASystemWithoutSwitches) {
    std::filesystem::remove_all("/sys/class/rfkill");
    EXPECT_THAT(cli::checkRadio(""), isGood());
}

} // namespace
