#include "edits/Edits.h"

#include "display/Text.h"
#include "edits/PropertyTable.h"
#include "edits/Secrets.h"
#include "jni/ServiceFunctions.h"
#include "values/Failure.h"

#include <algorithm>
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

// The library's value for what the user has written.
std::string valueFor(const Property& property, const std::string& written,
                     const Interrupt& interrupt) {
    switch (property.entry) {
    case Entry::PLAIN:
        return property.take(property, written);
    case Entry::HIDDEN:
        return property.take(property, readSecret(property.name, written, interrupt));
    case Entry::ENCIPHERED:
        return enciphered(property.take(property, readSecret(property.name, written, interrupt)));
    case Entry::REPORTED:
        break;
    }
    throw WrongUse(std::string(property.name) +
                   " is what the supplicant reports, and cannot be set");
}

std::vector<const char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<const char*> pointers;
    std::transform(texts.begin(), texts.end(), std::back_inserter(pointers),
                   [](const std::string& text) { return text.c_str(); });
    return pointers;
}

} // namespace

// Secrets are read after all names are checked: the user must not type one in vain.
Edits::Edits(const std::vector<std::string>& assignments, const Interrupt& interrupt) {
    std::vector<Assignment> checked;
    for (const std::string& written : assignments) {
        checked.push_back(assignmentOf(written));
        requireOnce(checked);
        propertyOf(checked.back().name);
    }
    for (const Assignment& assignment : checked) {
        m_names.push_back(assignment.name);
        m_values.push_back(valueFor(propertyOf(assignment.name), assignment.value, interrupt));
    }
}

std::string Edits::valueOf(const std::string& name) const {
    const auto place = std::find(m_names.begin(), m_names.end(), name);
    return place == m_names.end() ? ""
                                  : m_values[static_cast<std::size_t>(place - m_names.begin())];
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
