#pragma once

#include "checks/Checks.h"

#include <string>
#include <utility>

namespace cli {

// What one check found; whoever calls it knows the subject.

inline Finding good(std::string found) {
    return {"", Health::good, std::move(found), ""};
}
inline Finding note(std::string found, std::string toDo) {
    return {"", Health::note, std::move(found), std::move(toDo)};
}
inline Finding bad(std::string found, std::string toDo) {
    return {"", Health::bad, std::move(found), std::move(toDo)};
}

// The checks. `iface` is the interface that is asked for, or "". One whose row in the table says so
// counts on those before it.

Finding checkClient(const std::string& iface);
Finding checkProcessLister(const std::string& iface);
Finding checkProcess(const std::string& iface);
Finding checkControlSocket(const std::string& iface);
Finding checkReply(const std::string& iface);
Finding checkInterface(const std::string& iface);
Finding checkSaving(const std::string& iface);
Finding checkConfiguration(const std::string& iface);
Finding checkKeyFile(const std::string& iface);
Finding checkSharedMemory(const std::string& iface);
Finding checkPidFile(const std::string& iface);

} // namespace cli
