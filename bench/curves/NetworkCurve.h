#pragma once

#include "curves/Curve.h"

#include <memory>

namespace test {
class Supplicant;
}

namespace bench {

/// An operation whose cost may depend on the number of networks. The settings are loaded; see
/// measureNetworkCurves().
class NetworkCurve {
public:
    NetworkCurve() = default;
    virtual ~NetworkCurve() = default;

    NetworkCurve(const NetworkCurve&) = delete;
    NetworkCurve& operator=(const NetworkCurve&) = delete;

    /// Called once for each number of networks, before its rounds.
    virtual void prepare(unsigned int /*networks*/) {}

    /// Seconds that the operation takes.
    virtual double operation() = 0;

    /// Seconds that it should take: for the same children without the library, for example.
    virtual double ideal() = 0;

    /// The picture of all rounds. The series have no labels yet.
    virtual Curve draw(Series operation, Series ideal) const = 0;
};

/// The operations, one a file, in the order in which a round runs them: a load makes a status refresh due.
std::unique_ptr<NetworkCurve> loadCurve();
std::unique_ptr<NetworkCurve> refreshCurve();
std::unique_ptr<NetworkCurve> lookupCurve();
std::unique_ptr<NetworkCurve> documentCurve();
std::unique_ptr<NetworkCurve> saveCurve();

/// The pictures of these operations in that order, against 1 to 255 networks. Changes the supplicant's networks.
std::vector<Curve> measureNetworkCurves(const test::Supplicant& supplicant);

} // namespace bench
