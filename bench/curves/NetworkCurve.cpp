#include "curves/NetworkCurve.h"

#include "Networks.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/Supplicant.h"
#include "supplicant/WifiUtil.h"

#include <iostream>

namespace bench {
namespace {

constexpr unsigned int NUMBERS[] = {1, 8, 32, 64, 128, 255};
constexpr int ROUNDS = 5;

struct Member {
    std::unique_ptr<NetworkCurve> curve;
    Series operation = {};
    Series ideal = {};
};

using Members = std::vector<Member>;

Members allMembers() {
    Members members;
    for (const auto make : {loadCurve, refreshCurve, lookupCurve, documentCurve, saveCurve})
        members.push_back({make()});
    return members;
}

void configure(const test::Supplicant& supplicant, unsigned int number) {
    supplicant.reload(networks(number));
    supplicant.awaitStatus("wpa_state=COMPLETED");
    WifiHostSettings::getInstance(nullptr)->refreshAllSettings();
}

void begin(Members& members, unsigned int number) {
    for (Member& member : members) {
        member.curve->prepare(number);
        member.operation.points.push_back({static_cast<double>(number), {}});
        member.ideal.points.push_back({static_cast<double>(number), {}});
    }
}

void runRound(Members& members) {
    for (Member& member : members) {
        member.operation.points.back().values.push_back(member.curve->operation());
        member.ideal.points.back().values.push_back(member.curve->ideal());
    }
    std::cout << '.' << std::flush;
}

} // namespace

std::vector<Curve> measureNetworkCurves(const test::Supplicant& supplicant) {
    Members members = allMembers();
    for (const unsigned int number : NUMBERS) {
        configure(supplicant, number);
        begin(members, number);
        for (int round = 0; round < ROUNDS; ++round)
            runRound(members);
    }
    WifiHostSettings::unload();
    WifiUtil::unload();
    std::vector<Curve> curves;
    for (const Member& member : members)
        curves.push_back(member.curve->draw(member.operation, member.ideal));
    return curves;
}

} // namespace bench
