// The search for a network by its SSID.

#include "Networks.h"
#include "Stopwatch.h"
#include "curves/NetworkCurve.h"
#include "settings/WifiHostSettings.h"

#include <benchmark/benchmark.h>

namespace bench {
namespace {

constexpr int CALLS = 5000;
constexpr double MOST_A_NETWORK = 20e-9;
constexpr double NANOSECOND = 1e-9;

class LookupCurve : public NetworkCurve {
public:
    void prepare(unsigned int networks) override { m_networks = networks; }

    // The network that was loaded first is the last one of the list.
    double operation() override {
        WifiHostSettings& settings = *WifiHostSettings::getInstance(nullptr);
        const std::string ssid = ssidOf(0);
        const platwifi::SettingsLock lock(settings);
        return secondsOf([&] { benchmark::DoNotOptimize(settings.getNetwork(WLAN, ssid.c_str())); },
                         CALLS);
    }

    double ideal() override { return MOST_A_NETWORK * m_networks; }

    Curve draw(Series operation, Series ideal) const override {
        const double perNetwork = fit(operation).slope;
        operation.label = "lookup of the last network of the list";
        ideal.label = "20 ns a network";
        return {{operation},
                ideal,
                "It takes " + inSeconds(perNetwork) +
                    " a network. The slope from 64 networks on is " + shortly(bend(operation, 64)) +
                    " times the slope before.",
                {{{}, {}, {}, {}, {}, "lookup-network", perNetwork / NANOSECOND}}};
    }

private:
    unsigned int m_networks = 0;
};

} // namespace

std::unique_ptr<NetworkCurve> lookupCurve() {
    return std::make_unique<LookupCurve>();
}

} // namespace bench
