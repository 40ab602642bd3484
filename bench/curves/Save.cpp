// A save of one field of one network.

#include "Commands.h"
#include "Networks.h"
#include "Stopwatch.h"
#include "curves/NetworkCurve.h"
#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"

#include <stdexcept>

namespace bench {
namespace {

WifiHostSettings& settings() {
    return *WifiHostSettings::getInstance(nullptr);
}

void save() {
    if (settings().saveNetworkSettings() != 1)
        throw std::runtime_error("the settings cannot be saved");
}

class SaveCurve : public NetworkCurve {
public:
    void prepare(unsigned int /*networks*/) override {
        change();
        m_commands = commandsOf(save);
    }

    double operation() override {
        change();
        return secondsOf(save);
    }

    double ideal() override {
        return secondsOf([this] { replay(QUICK_CLIENT, m_commands); });
    }

    Curve draw(Series operation, Series ideal) const override {
        operation.label = "save of one field";
        ideal.label = "the same commands, bare";
        return {{operation},
                ideal,
                "It takes " + inSeconds(first(operation)) + " for 1 network and " +
                    inSeconds(last(operation)) + " for 255, with " +
                    std::to_string(m_commands.size()) + " commands, which take " +
                    inSeconds(first(ideal)) + " and " + inSeconds(last(ideal)) +
                    " without the library."};
    }

private:
    static void change() {
        const platwifi::SettingsLock lock(settings());
        WifiNetwork& network = *settings().getNetwork(WLAN, ssidOf(0).c_str());
        network.setPriority(network.getPriority() == 1 ? 2 : 1); // always a change
    }

    Commands m_commands;
};

} // namespace

std::unique_ptr<NetworkCurve> saveCurve() {
    return std::make_unique<SaveCurve>();
}

} // namespace bench
