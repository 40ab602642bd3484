// A load of all networks.

#include "Commands.h"
#include "Stopwatch.h"
#include "curves/NetworkCurve.h"
#include "settings/WifiHostSettings.h"

namespace bench {
namespace {

constexpr unsigned int MOST_COUNTED = 32; // counting takes several times as long as a load
constexpr int BARE_COMMANDS = 25;

void load() {
    WifiHostSettings::getInstance(nullptr)->refreshAllSettings();
}

void readAValue() {
    runBare(QUICK_CLIENT, {"-iwlan0", "get_network", "0", "priority"});
}

class LoadCurve : public NetworkCurve {
public:
    void prepare(unsigned int networks) override {
        const double number = networks;
        if (networks > MOST_COUNTED)
            m_commands = m_countedLast + m_perNetwork * (number - MOST_COUNTED);
        else
            count(number);
    }

    double operation() override { return secondsOf(load); }

    double ideal() override { return m_commands * medianSecondsOf(readAValue, BARE_COMMANDS); }

    Curve draw(Series operation, Series ideal) const override {
        const double perNetwork = fit(operation).slope;
        const double bare = fit(ideal).slope;
        operation.label = "load";
        ideal.label = "the same number of bare commands";
        return {{operation},
                ideal,
                "It takes " + inSeconds(perNetwork) + " a network, for " + shortly(m_perNetwork) +
                    " commands, which take " + inSeconds(bare) +
                    " without the library. The slope from 64 networks on is " +
                    shortly(bend(operation, 64)) + " times the slope before."};
    }

private:
    // The networks are of eight kinds in turn, so each further eight of them cost the same.
    void count(double number) {
        m_commands = static_cast<double>(commandsOf(load).size());
        m_perNetwork = (m_commands - m_countedLast) / (number - m_numberLast);
        m_countedLast = m_commands;
        m_numberLast = number;
    }

    double m_commands = 0;
    double m_perNetwork = 0;
    double m_countedLast = 0;
    double m_numberLast = 0;
};

} // namespace

std::unique_ptr<NetworkCurve> loadCurve() {
    return std::make_unique<LoadCurve>();
}

} // namespace bench
