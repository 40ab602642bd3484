#include "checks/Checks.h"

#include "checks/CheckFunctions.h"

namespace cli {
namespace {

enum class Kind {
    OBSTACLE,   ///< if it is bad, the supplicant cannot be reached
    DEPENDENT,  ///< like an obstacle, runs only if none was found before it
    INDEPENDENT ///< always runs
};

struct Check {
    const char* subject;
    Kind kind;
    Finding (*run)(const std::string& iface);
};

constexpr Check CHECKS[] = {
    {"profile", Kind::INDEPENDENT, checkProfile},
    {"client", Kind::OBSTACLE, checkClient},
    {"quick client", Kind::DEPENDENT, checkQuickClient},
    {"process lister", Kind::OBSTACLE, checkProcessLister},
    {"radio", Kind::INDEPENDENT, checkRadio},
    {"other managers", Kind::DEPENDENT, checkManagers},
    {"supplicant", Kind::OBSTACLE, checkProcess},
    {"control socket", Kind::OBSTACLE, checkControlSocket},
    {"reply", Kind::OBSTACLE, checkReply},
    {"interface", Kind::OBSTACLE, checkInterface},
    {"update_config", Kind::DEPENDENT, checkSaving},
    {"configuration", Kind::DEPENDENT, checkConfiguration},
    {"country", Kind::DEPENDENT, checkCountry},
    {"address", Kind::DEPENDENT, checkAddress},
    {"key file", Kind::INDEPENDENT, checkKeyFile},
    {"shared memory", Kind::INDEPENDENT, checkSharedMemory},
    {"pid file", Kind::INDEPENDENT, checkPidFile},
};

Finding findingOf(const Check& check, const std::string& iface) {
    Finding finding = check.run(iface);
    finding.subject = check.subject;
    return finding;
}

bool blocks(const Check& check, const Finding& finding) {
    return check.kind == Kind::OBSTACLE && finding.health == Health::BAD;
}

} // namespace

std::vector<Finding> examine(const std::string& iface) {
    std::vector<Finding> findings;
    bool isBlocked = false;
    for (const Check& check : CHECKS) {
        if (isBlocked && check.kind != Kind::INDEPENDENT)
            continue;
        findings.push_back(findingOf(check, iface));
        isBlocked = isBlocked || blocks(check, findings.back());
    }
    return findings;
}

std::optional<Finding> obstacle(const std::string& iface) {
    for (const Check& check : CHECKS) {
        if (check.kind != Kind::OBSTACLE)
            continue;
        const Finding finding = findingOf(check, iface);
        if (blocks(check, finding))
            return finding;
    }
    return std::nullopt;
}

std::optional<Finding> missingClient() {
    const Finding finding = checkClient("");
    if (finding.health != Health::BAD)
        return std::nullopt;
    return finding;
}

} // namespace cli
