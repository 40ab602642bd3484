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
    /// first line of a file; or nothing, which clears it.
    /// @throws WrongUse, Failure, Interrupted; nothing is changed then
    explicit Edits(Context& context);

    /// Whether a value other than nothing is given for this property.
    bool gives(const std::string& name) const;

    bool isEmpty() const { return m_names.empty(); }

    /// Applies them to one network in memory, all in one step. @throws Failure
    void apply(const std::string& iface, const std::string& ssid) const;

private:
    std::vector<std::string> m_names;
    std::vector<std::string> m_values;
};

} // namespace cli
