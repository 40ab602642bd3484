#include "connection/Obstacles.h"

#include "display/Text.h"
#include "model/WifiNetwork.h"
#include "values/Texts.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <net/if.h>
#include <sys/stat.h>

namespace cli {
namespace {

namespace fs = std::filesystem;

struct FileField {
    const char* property;
    const char* (WifiNetwork::*path)() const;
};

// clang-format off
constexpr FileField FILES[] = {
    {"CACertificateFile", &WifiNetwork::getCACertificate},
    {"CACertificateDir", &WifiNetwork::getCACertificateDir},
    {"clientCertificate", &WifiNetwork::getClientCertificate},
    {"privateKeyFile", &WifiNetwork::getPrivateKeyFile},
    {"CACertificateFile2", &WifiNetwork::getCACertificate2},
    {"CACertificateDir2", &WifiNetwork::getCACertificateDir2},
    {"clientCertificate2", &WifiNetwork::getClientCertificate2},
    {"privateKeyFile2", &WifiNetwork::getPrivateKeyFile2},
};
// clang-format on

// A value without a slash at the beginning may be no path: "hash://server/sha256/...", "blob://NAME".
bool isMissing(const char* path) {
    struct stat status {};
    return path && path[0] == '/' && stat(path, &status) != 0 &&
           (errno == ENOENT || errno == ENOTDIR);
}

std::string wordIn(const fs::path& file) {
    std::string word;
    std::ifstream(file) >> word;
    return word;
}

// The radio of an adapter has a folder such as rfkill0. `kind` is "hard" or "soft".
bool isBlocked(const fs::path& adapter, const char* kind) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(adapter / "phy80211", error)) {
        const bool isSwitch = beginsWith(entry.path().filename().string(), "rfkill");
        if (isSwitch && wordIn(entry.path() / kind) == "1")
            return true;
    }
    return false;
}

bool isLinkDown(const fs::path& adapter) {
    const std::string flags = wordIn(adapter / "flags");
    return !flags.empty() && (std::strtoul(flags.c_str(), nullptr, 16) & IFF_UP) == 0;
}

} // namespace

std::optional<Diagnosis> missingFile(const WifiNetwork& network) {
    for (const FileField& field : FILES) {
        const char* const path = (network.*field.path)();
        if (!isMissing(path))
            continue;
        const std::string property = field.property;
        return Diagnosis{
            Cause::CERTIFICATE_FILE, printable(path) + " (" + property + ") does not exist",
            "put it there, or correct the path with platwifi set SSID " + property + "=PATH"};
    }
    return std::nullopt;
}

std::optional<Diagnosis> adapterBlock(const std::string& iface, const std::string& interfaces) {
    const fs::path adapter = fs::path(interfaces) / iface;
    if (isBlocked(adapter, "hard")) {
        return Diagnosis{Cause::ADAPTER_BLOCKED, iface + " is blocked by a switch of this device",
                         "turn that switch; rfkill list shows its state"};
    }
    if (isBlocked(adapter, "soft"))
        return Diagnosis{Cause::ADAPTER_BLOCKED, iface + " is blocked by software (rfkill)", ""};
    if (isLinkDown(adapter)) {
        return Diagnosis{Cause::ADAPTER_BLOCKED, "the link of " + iface + " is down",
                         "switch it on as root: ip link set " + iface + " up"};
    }
    return std::nullopt;
}

} // namespace cli
