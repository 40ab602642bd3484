#include "checks/SystemFiles.h"

#include "client/ControlSocket.h"
#include "values/Texts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace cli {
namespace {

constexpr const char* INTERFACES = "/sys/class/net";

bool isWireless(const std::string& iface) {
    std::error_code error;
    return std::filesystem::exists(systemFolderOf(iface) + "/phy80211", error) &&
           !isForWifiDirect(iface);
}

} // namespace

std::string firstLineOf(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

std::string valueIn(const std::string& path, const std::string& key) {
    std::ifstream file(path);
    return lineValue(key, file);
}

std::vector<std::string> namesIn(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string systemFolderOf(const std::string& iface) {
    return std::string(INTERFACES) + "/" + iface;
}

std::string examinedInterface(const std::string& iface) {
    std::string served = interfaceFor(iface);
    if (!served.empty())
        return served;
    const std::vector<std::string> all = namesIn(INTERFACES);
    const auto first = std::find_if(all.begin(), all.end(), isWireless);
    return first == all.end() ? "" : *first;
}

std::string fileByIndex(const std::string& folder, const std::string& iface) {
    const std::string index = iface.empty() ? "" : firstLineOf(systemFolderOf(iface) + "/ifindex");
    return index.empty() ? "" : folder + "/" + index;
}

} // namespace cli
