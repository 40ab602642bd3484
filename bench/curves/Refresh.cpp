// A refresh of the status of all networks.

#include "Commands.h"
#include "Stopwatch.h"
#include "curves/NetworkCurve.h"
#include "settings/WifiHostSettings.h"

#include <stdexcept>

namespace bench {
namespace {

// Due after a load, and then not for 5 s.
void refresh() {
    if (!WifiHostSettings::getInstance(nullptr)->refreshDatabaseNetworksStatus())
        throw std::runtime_error("the status cannot be refreshed");
}

class RefreshCurve : public NetworkCurve {
public:
    void prepare(unsigned int /*networks*/) override { m_commands = commandsOf(refresh); }

    double operation() override { return secondsOf(refresh); }

    double ideal() override {
        return secondsOf([this] { replay(QUICK_CLIENT, m_commands); });
    }

    Curve draw(Series operation, Series ideal) const override {
        const double own = last(operation) - last(ideal);
        operation.label = "status refresh";
        ideal.label = "the same commands, bare";
        return {{operation},
                ideal,
                "It takes " + inSeconds(first(operation)) + " for 1 network and " +
                    inSeconds(last(operation)) + " for 255, with " +
                    std::to_string(m_commands.size()) + " commands, which take " +
                    inSeconds(last(ideal)) + " without the library. The library's own part is " +
                    inSeconds(own) + " then, " + inSeconds(own / operation.points.back().x) +
                    " a network."};
    }

private:
    Commands m_commands;
};

} // namespace

std::unique_ptr<NetworkCurve> refreshCurve() {
    return std::make_unique<RefreshCurve>();
}

} // namespace bench
