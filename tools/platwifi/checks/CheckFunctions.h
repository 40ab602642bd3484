#pragma once

#include "checks/Finding.h"

#include <string>

namespace cli {

/// Where the documentation says more.
inline constexpr const char* AFTER_CONNECTING =
    "see the page \"After connecting\" of platwifi's documentation";

// The checks. `iface` is the interface on the command line, or "". A check may rely on those that come
// before it in the table of Checks.cpp.

Finding checkProfile(const std::string& iface);
Finding checkClient(const std::string& iface);
Finding checkQuickClient(const std::string& iface);
Finding checkProcessLister(const std::string& iface);
Finding checkRadio(const std::string& iface);
Finding checkManagers(const std::string& iface);
Finding checkProcess(const std::string& iface);
Finding checkControlSocket(const std::string& iface);
Finding checkReply(const std::string& iface);
Finding checkInterface(const std::string& iface);
Finding checkSaving(const std::string& iface);
Finding checkConfiguration(const std::string& iface);
Finding checkCountry(const std::string& iface);
Finding checkAddress(const std::string& iface);
Finding checkKeyFile(const std::string& iface);
Finding checkSharedMemory(const std::string& iface);
Finding checkPidFile(const std::string& iface);

/// The part of checkControlSocket() that concerns the socket of one interface alone. Runs no program.
/// @param iface  not ""
Finding checkSocketOf(const std::string& iface);

} // namespace cli
