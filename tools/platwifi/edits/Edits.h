#pragma once

#include "Context.h"

#include <string>
#include <vector>

namespace cli {

/// The properties that the user wants changed, as setNetworkParameters() takes them: checked, secrets
/// read and enciphered.
class Edits {
public:
    /// Reads "NAME=VALUE" each. For a secret VALUE is "-", a line of standard input, or "@FILE", the
    /// first line of a file; or nothing, which clears a password.
    /// @throws WrongUse, Failure, Interrupted; nothing is changed then
    explicit Edits(Context& context);

    /// What the library takes for this property; "" where it is cleared or not among them.
    std::string valueOf(const std::string& name) const;

    /// Adds one that the user has not written. @throws WrongUse
    void add(const std::string& name, const std::string& word);

    /// Applies them to one network in memory, all in one step. @throws Failure
    void apply(const std::string& iface, const std::string& ssid) const;

private:
    std::vector<std::string> m_names;
    std::vector<std::string> m_values;
};

} // namespace cli
