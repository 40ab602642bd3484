#pragma once

#include <string>
#include <vector>

namespace cli {

/// The first line of a file of the system, such as one in /sys; "" if it cannot be read.
std::string firstLineOf(const std::string& path);

/// VALUE of the first line "KEY=VALUE" of a file; "" if there is none.
std::string valueIn(const std::string& path, const std::string& key);

/// The names in a folder, sorted; empty if it cannot be read.
std::vector<std::string> namesIn(const std::string& folder);

/// The interface that the checks of the host are about: `iface`; if that is "", the first one with a control
/// socket; else the first wireless interface of the system; else "".
std::string examinedInterface(const std::string& iface);

/// The folder in which the kernel describes an interface.
std::string systemFolderOf(const std::string& iface);

/// The file of a service that keeps one for each interface, named by its index.
/// @return "" if the system has no such interface
std::string fileByIndex(const std::string& folder, const std::string& iface);

} // namespace cli
