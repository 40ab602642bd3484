#include "checks/Checks.h"

#include "checks/CheckFunctions.h"

namespace cli {
namespace {

enum class Kind {
    PROGRAM,          ///< an obstacle: without this program nothing can be asked
    OBSTACLE,         ///< if it is bad, the supplicant cannot be reached
    NEEDS_PROGRAMS,   ///< runs only if all programs are there
    NEEDS_SUPPLICANT, ///< runs only if there is no obstacle
    INDEPENDENT       ///< always runs
};

struct Check {
    const char* subject;
    Kind kind;
    Finding (*run)(const std::string& iface);
};

constexpr Check CHECKS[] = {
    {"profile", Kind::INDEPENDENT, checkProfile},
    {"client", Kind::PROGRAM, checkClient},
    {"process lister", Kind::PROGRAM, checkProcessLister},
    {"radio", Kind::INDEPENDENT, checkRadio},
    {"other managers", Kind::NEEDS_PROGRAMS, checkManagers},
    {"supplicant", Kind::OBSTACLE, checkProcess},
    {"control socket", Kind::OBSTACLE, checkControlSocket},
    {"reply", Kind::OBSTACLE, checkReply},
    {"interface", Kind::OBSTACLE, checkInterface},
    {"update_config", Kind::NEEDS_SUPPLICANT, checkSaving},
    {"configuration", Kind::NEEDS_SUPPLICANT, checkConfiguration},
    {"country", Kind::NEEDS_SUPPLICANT, checkCountry},
    {"address", Kind::NEEDS_SUPPLICANT, checkAddress},
    {"key file", Kind::INDEPENDENT, checkKeyFile},
    {"shared memory", Kind::INDEPENDENT, checkSharedMemory},
    {"pid file", Kind::INDEPENDENT, checkPidFile},
};

Finding findingOf(const Check& check, const std::string& iface) {
    Finding finding = check.run(iface);
    finding.subject = check.subject;
    return finding;
}

bool isObstacle(const Check& check) {
    return check.kind == Kind::PROGRAM || check.kind == Kind::OBSTACLE;
}

/// The obstacles that were found so far.
class Obstacles {
public:
    bool leaveOut(const Check& check) const {
        if (check.kind == Kind::INDEPENDENT)
            return false;
        return check.kind == Kind::NEEDS_PROGRAMS ? m_lacksProgram : m_any;
    }

    void add(const Check& check, const Finding& finding) {
        const bool isBad = finding.health == Health::BAD;
        m_any = m_any || (isBad && isObstacle(check));
        m_lacksProgram = m_lacksProgram || (isBad && check.kind == Kind::PROGRAM);
    }

private:
    bool m_any = false;
    bool m_lacksProgram = false;
};

} // namespace

std::vector<Finding> examine(const std::string& iface) {
    std::vector<Finding> findings;
    Obstacles obstacles;
    for (const Check& check : CHECKS) {
        if (obstacles.leaveOut(check))
            continue;
        findings.push_back(findingOf(check, iface));
        obstacles.add(check, findings.back());
    }
    return findings;
}

std::optional<Finding> obstacle(const std::string& iface) {
    for (const Check& check : CHECKS) {
        if (!isObstacle(check))
            continue;
        const Finding finding = findingOf(check, iface);
        if (finding.health == Health::BAD)
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
