#pragma once

#include "process/UserInput.h"

#include <string>
#include <vector>

namespace cli {

/// Changes of properties as setNetworkParameters() takes them: checked, and with secrets read and
/// enciphered.
class Edits {
public:
    /// Reads the assignments, and the secrets that they name.
    /// @param assignments  "NAME=VALUE" each
    /// @param input        gives the secrets
    /// @throws WrongUse, Failure, Interrupted
    Edits(const std::vector<std::string>& assignments, const UserInput& input);

    /// The library's value for a property; "" if it is cleared or not changed.
    std::string valueOf(const std::string& name) const;

    /// The same as a number; 0 if it is cleared or not changed.
    unsigned int numberOf(const std::string& name) const;

    /// Checks that a new key fits the key management.
    /// @param keyManagement  a set of KeyManagement
    /// @throws WrongUse
    void requireKeyFor(unsigned int keyManagement) const;

    /// Adds the change of a property that takes words. @throws WrongUse
    void add(const std::string& name, const std::string& word);

    /// Applies all changes to one network in memory, or none. @throws Failure
    void apply(const std::string& iface, const std::string& ssid) const;

private:
    std::vector<std::string> m_names;
    std::vector<std::string> m_values;
    bool m_isPsk = true; ///< the new key, if there is one, fits all key managements
};

} // namespace cli
