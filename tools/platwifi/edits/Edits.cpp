#include "edits/Edits.h"

#include "display/Text.h"
#include "edits/PropertyRules.h"
#include "edits/PropertyTable.h"
#include "edits/Secrets.h"
#include "jni/ServiceFunctions.h"
#include "values/Failure.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace cli {
namespace {

struct Assignment {
    std::string name;
    std::string value;
};

Assignment assignmentOf(const std::string& written) {
    const std::size_t sign = written.find('=');
    if (sign == std::string::npos || sign == 0)
        throw WrongUse("'" + printable(written) +
                       "' is no NAME=VALUE; platwifi set --help lists the names");
    return {written.substr(0, sign), written.substr(sign + 1)};
}

void requireOnce(const std::vector<Assignment>& assignments) {
    const std::string& last = assignments.back().name;
    const auto hasSameName = [&](const Assignment& one) { return one.name == last; };
    if (std::count_if(assignments.begin(), assignments.end(), hasSameName) > 1)
        throw WrongUse(printable(last) + " is given twice; leave out one of them");
}

// What the user has written, or what that names.
std::string textFor(const Property& property, const std::string& written, const UserInput& input) {
    if (property.entry == Entry::REPORTED)
        throw WrongUse(std::string(property.name) +
                       " is what the supplicant reports, and cannot be set");
    return property.take(property,
                         isSecret(property) ? input.secretOf(property.name, written) : written);
}

bool isKey(const Property& property) {
    return std::strcmp(property.name, "psk") == 0;
}

std::vector<const char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<const char*> pointers;
    std::transform(texts.begin(), texts.end(), std::back_inserter(pointers),
                   [](const std::string& text) { return text.c_str(); });
    return pointers;
}

} // namespace

// Secrets are read after all names are checked: the user must not type one in vain.
Edits::Edits(const std::vector<std::string>& assignments, const UserInput& input) {
    std::vector<Assignment> checked;
    for (const std::string& written : assignments) {
        checked.push_back(assignmentOf(written));
        requireOnce(checked);
        propertyOf(checked.back().name);
    }
    for (const Assignment& assignment : checked) {
        const Property& property = propertyOf(assignment.name);
        const std::string text = textFor(property, assignment.value, input);
        m_isPsk = m_isPsk && (!isKey(property) || isPsk(text));
        m_names.push_back(assignment.name);
        m_values.push_back(property.entry == Entry::ENCIPHERED ? enciphered(text) : text);
    }
}

std::string Edits::valueOf(const std::string& name) const {
    const auto place = std::find(m_names.begin(), m_names.end(), name);
    return place == m_names.end() ? ""
                                  : m_values[static_cast<std::size_t>(place - m_names.begin())];
}

unsigned int Edits::numberOf(const std::string& name) const {
    return static_cast<unsigned int>(std::strtoul(valueOf(name).c_str(), nullptr, 10));
}

void Edits::requireKeyFor(unsigned int keyManagement) const {
    if (!m_isPsk && ((keyManagement & platwifi::PSK_METHODS) != 0 || keyManagement == 0))
        throw WrongUse("psk takes 8 to 63 characters, or 64 hexadecimal digits; any length only "
                       "where key_mgmt is SAE alone");
}

void Edits::add(const std::string& name, const std::string& word) {
    const Property& property = propertyOf(name);
    m_values.push_back(property.take(property, word));
    m_names.push_back(name);
}

void Edits::apply(const std::string& iface, const std::string& ssid) const {
    ErrorHandler errors;
    const auto names = pointersTo(m_names);
    const auto values = pointersTo(m_values);
    const bool isDone =
        setNetworkParameters(&errors, iface.c_str(), ssid.c_str(), names.data(), values.data(),
                             static_cast<unsigned int>(names.size())) != 0;
    if (const MessageBundle* const error = errors.savedError())
        throw Failure(error->text());
    if (!isDone)
        throw Failure("the network is gone: another program has removed it; platwifi networks "
                      "lists what there is");
}

} // namespace cli
