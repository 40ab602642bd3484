// The call for the XML document.

#include "BareCommand.h"
#include "Stopwatch.h"
#include "XmlElement.h"
#include "curves/NetworkCurve.h"

namespace bench {
namespace {

constexpr int CALLS = 15; // in less than 5 s after a status refresh, so that none is due

void twoChildren() {
    runBare(PROCESS_LISTER, {"-iwlan0", "arg"});
    runBare(QUICK_CLIENT, {"-iwlan0", "status"});
}

class DocumentCurve : public NetworkCurve {
public:
    double operation() override {
        return medianSecondsOf([] { libraryDocument(); }, CALLS);
    }

    double ideal() override { return medianSecondsOf(twoChildren, CALLS); }

    Curve draw(Series operation, Series ideal) const override {
        const double perNetwork = fit(operation).slope;
        operation.label = "call for the document";
        ideal.label = "its two children, bare";
        return {{operation},
                ideal,
                "The two children take " + inSeconds(first(ideal)) + " without the library. The " +
                    "call takes " + inSeconds(first(operation)) + " for 1 network and " +
                    inSeconds(perNetwork) +
                    " for each further one. The slope from 64 networks on is " +
                    shortly(bend(operation, 64)) + " times the slope before."};
    }
};

} // namespace

std::unique_ptr<NetworkCurve> documentCurve() {
    return std::make_unique<DocumentCurve>();
}

} // namespace bench
