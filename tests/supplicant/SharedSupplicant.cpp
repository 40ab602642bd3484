#include "SharedSupplicant.h"

#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <gtest/gtest.h>

#include <memory>

namespace test {
namespace {

std::unique_ptr<Supplicant> shared;

struct LastStep : testing::Environment {
    void TearDown() override { stopSharedSupplicant(); }
};

const testing::Environment* const REGISTERED = testing::AddGlobalTestEnvironment(new LastStep);

} // namespace

Supplicant& sharedSupplicant() {
    if (!shared) {
        shared = std::make_unique<Supplicant>();
        shared->start();
    }
    return *shared;
}

void stopSharedSupplicant() {
    WifiHostSettings::unload();
    WifiUtil::unload();
    shared.reset();
}

} // namespace test
