#include "checks/Checks.h"

#include "checks/CheckFunctions.h"

namespace cli {
namespace {

enum class Place {
    onTheWay, ///< to the supplicant: nothing behind it can be looked at where it is bad
    behind,   ///< needs the supplicant
    beside    ///< can always be looked at
};

struct Check {
    const char* subject;
    Place place;
    Finding (*look)(const std::string& iface);
};

constexpr Check CHECKS[] = {
    {"client", Place::onTheWay, checkClient},
    {"process lister", Place::onTheWay, checkProcessLister},
    {"supplicant", Place::onTheWay, checkProcess},
    {"control socket", Place::onTheWay, checkControlSocket},
    {"reply", Place::onTheWay, checkReply},
    {"interface", Place::onTheWay, checkInterface},
    {"update_config", Place::behind, checkSaving},
    {"configuration", Place::behind, checkConfiguration},
    {"key file", Place::beside, checkKeyFile},
    {"shared memory", Place::beside, checkSharedMemory},
    {"pid file", Place::beside, checkPidFile},
};

Finding made(const Check& check, const std::string& iface) {
    Finding finding = check.look(iface);
    finding.subject = check.subject;
    return finding;
}

bool blocks(const Check& check, const Finding& finding) {
    return check.place == Place::onTheWay && finding.health == Health::bad;
}

} // namespace

std::vector<Finding> examine(const std::string& iface) {
    std::vector<Finding> findings;
    bool isBlocked = false;
    for (const Check& check : CHECKS) {
        if (isBlocked && check.place != Place::beside)
            continue;
        findings.push_back(made(check, iface));
        isBlocked = isBlocked || blocks(check, findings.back());
    }
    return findings;
}

std::optional<Finding> obstacle(const std::string& iface) {
    for (const Check& check : CHECKS) {
        if (check.place != Place::onTheWay)
            continue;
        const Finding finding = made(check, iface);
        if (blocks(check, finding))
            return finding;
    }
    return std::nullopt;
}

std::optional<Finding> missingClient() {
    const Finding finding = checkClient("");
    if (finding.health != Health::bad)
        return std::nullopt;
    return finding;
}

} // namespace cli
