// Whether a switch of the system or of the device blocks the radio (rfkill).

#include "checks/CheckFunctions.h"
#include "checks/SystemFiles.h"

#include <algorithm>
#include <iterator>

namespace cli {
namespace {

constexpr const char* SWITCHES = "/sys/class/rfkill/";
constexpr const char* SOFTWARE_STEP = "switch it on as root: rfkill unblock wifi";

// The kernel names the switch of a radio like the radio. Another name is a switch of the device, which
// concerns all radios.
bool concerns(const std::string& radio, const std::string& switchName) {
    const bool isOfARadio = switchName.compare(0, 3, "phy") == 0;
    return !isOfARadio || radio.empty() || switchName == radio;
}

// The folders of the switches for Wi-Fi that concern the radio.
std::vector<std::string> switchesFor(const std::string& radio) {
    std::vector<std::string> folders;
    for (const std::string& entry : namesIn(SWITCHES)) {
        const std::string folder = SWITCHES + entry;
        if (firstLineOf(folder + "/type") == "wlan" &&
            concerns(radio, firstLineOf(folder + "/name")))
            folders.push_back(folder);
    }
    return folders;
}

bool anyIsSet(const std::vector<std::string>& folders, const char* block) {
    return std::any_of(folders.begin(), folders.end(), [=](const std::string& folder) {
        return firstLineOf(folder + "/" + block) == "1";
    });
}

Finding hardBlock(const std::string& radio, bool isAlsoSoft) {
    const std::string step =
        "use the switch or the key for Wi-Fi of this device, or the settings of "
        "its firmware";
    return bad(radio + " is switched off by the device (rfkill, hard block)",
               isAlsoSoft ? step + "; then " + SOFTWARE_STEP : step);
}

} // namespace

Finding checkRadio(const std::string& iface) {
    const std::string examined = examinedInterface(iface);
    const auto switches = switchesFor(firstLineOf(systemFolderOf(examined) + "/phy80211/name"));
    const std::string radio = examined.empty() ? "the radio" : "the radio of " + examined;
    const bool isSoft = anyIsSet(switches, "soft");
    if (anyIsSet(switches, "hard"))
        return hardBlock(radio, isSoft);
    if (isSoft)
        return bad(radio + " is switched off by software (rfkill, soft block)", SOFTWARE_STEP);
    return good("no switch blocks " + radio);
}

} // namespace cli
