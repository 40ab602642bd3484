#include "commands/MissingProperties.h"

#include "edits/PropertyTable.h"
#include "values/Failure.h"

#include <algorithm>
#include <strings.h>

namespace cli {
namespace {

enum class Asked { NO, ON_TERMINAL };

// Which EAP methods need a property.
enum Methods : unsigned int {
    NO_METHOD = 0x1, // none is given
    TLS = 0x2,
    OTHERS = 0x4,
    PASSWORD = NO_METHOD | OTHERS,
    ALL = NO_METHOD | TLS | OTHERS,
};

// What a network needs to know.
struct Need {
    Credentials credentials;
    unsigned int methods;
    const char* property;
    const char* alternative; // that serves as well, or null
    Asked asked;
    const char* example; // how it is given
};

// clang-format off
constexpr Need NEEDS[] = {
    {Credentials::KEY, ALL, "psk", nullptr, Asked::ON_TERMINAL, "psk=- (from standard input) or psk=@FILE"},
    {Credentials::WEP_KEY, ALL, "key1", nullptr, Asked::ON_TERMINAL, "key1=- (from standard input) or key1=@FILE"},
    {Credentials::LOGIN, NO_METHOD, "eap", nullptr, Asked::NO, "--eap PEAP, TTLS or TLS"},
    {Credentials::LOGIN, ALL, "eapIdentity", nullptr, Asked::ON_TERMINAL, "eapIdentity=NAME"},
    {Credentials::LOGIN, PASSWORD, "eapPassword", nullptr, Asked::ON_TERMINAL, "eapPassword=-"},
    {Credentials::LOGIN, TLS, "clientCertificate", nullptr, Asked::NO, "clientCertificate=PATH"},
    {Credentials::LOGIN, TLS, "privateKeyFile", nullptr, Asked::NO, "privateKeyFile=PATH"},
    {Credentials::LOGIN, ALL, "CACertificateFile", "CACertificateDir", Asked::NO, "CACertificateFile=PATH (empty: any server is trusted)"},
};
// clang-format on

std::string nameOf(const std::string& assignment) {
    return assignment.substr(0, assignment.find('='));
}

std::string assigned(const Assignments& assignments, const std::string& name) {
    for (const std::string& assignment : assignments) {
        if (nameOf(assignment) == name && assignment.size() > name.size())
            return assignment.substr(name.size() + 1);
    }
    return "";
}

Methods methodOf(const Assignments& assignments) {
    const std::string method = assigned(assignments, "eap");
    if (method.empty())
        return NO_METHOD;
    return strcasecmp(method.c_str(), "TLS") == 0 ? TLS : OTHERS;
}

bool isMissing(const Need& need, const Assignments& assignments) {
    return !isGiven(assignments, need.property) &&
           !(need.alternative && isGiven(assignments, need.alternative));
}

std::vector<Need> missing(const Assignments& assignments, Credentials credentials) {
    const Methods method = methodOf(assignments);
    std::vector<Need> needs;
    for (const Need& need : NEEDS) {
        const bool counts = need.credentials == credentials && (need.methods & method) != 0;
        if (counts && isMissing(need, assignments))
            needs.push_back(need);
    }
    return needs;
}

bool canBeAsked(const Need& need, const UserInput& input) {
    return need.asked == Asked::ON_TERMINAL && input.canAsk();
}

[[noreturn]] void refuse(const std::vector<Need>& needs, const std::string& shownSsid,
                         const UserInput& input) {
    std::string list;
    for (const Need& need : needs) {
        if (!canBeAsked(need, input))
            list += (list.empty() ? "" : ", ") + input.wayToGive(need.property, need.example);
    }
    throw Failure(shownSsid + " is not joined, it needs: " + list);
}

std::string ask(const Need& need, const UserInput& input) {
    const bool isRead = isSecret(propertyOf(need.property)); // with the other secrets
    return std::string(need.property) + '=' + (isRead ? "-" : input.answerTo(need.property));
}

// What each property is a credential for.
struct Credential {
    const char* property;
    Credentials credentials;
    const char* toTake; // what a network without that does
};

// clang-format off
constexpr Credential CREDENTIALS[] = {
    {"psk", Credentials::KEY, "takes no key"},
    {"key1", Credentials::WEP_KEY, "takes no WEP key"},
    {"key2", Credentials::WEP_KEY, "takes no WEP key"},
    {"key3", Credentials::WEP_KEY, "takes no WEP key"},
    {"key4", Credentials::WEP_KEY, "takes no WEP key"},
    {"eap", Credentials::LOGIN, "takes no login"},
    {"eapIdentity", Credentials::LOGIN, "takes no login"},
    {"eapPassword", Credentials::LOGIN, "takes no login"},
};
// clang-format on

[[noreturn]] void refuse(const Credential& given, const std::string& shownSsid,
                         const std::string& security) {
    std::string text = shownSsid;
    text += " is not joined: its security is " + security + ", which ";
    text += std::string(given.toTake) + "; leave out " + given.property;
    throw Failure(text);
}

} // namespace

bool isGiven(const Assignments& assignments, const std::string& name) {
    return std::any_of(assignments.begin(), assignments.end(),
                       [&](const std::string& assignment) { return nameOf(assignment) == name; });
}

std::optional<Credentials> givenCredentials(const Assignments& assignments) {
    for (const Credential& one : CREDENTIALS) {
        if (isGiven(assignments, one.property))
            return one.credentials;
    }
    return std::nullopt;
}

void requireFitting(const Assignments& given, Credentials credentials, const std::string& shownSsid,
                    const std::string& security) {
    for (const Credential& one : CREDENTIALS) {
        if (one.credentials != credentials && isGiven(given, one.property))
            refuse(one, shownSsid, security);
    }
}

void completeCredentials(Assignments& assignments, Credentials credentials,
                         const std::string& shownSsid, const UserInput& input) {
    const std::vector<Need> needs = missing(assignments, credentials);
    if (!std::all_of(needs.begin(), needs.end(),
                     [&](const Need& need) { return canBeAsked(need, input); }))
        refuse(needs, shownSsid, input);
    for (const Need& need : needs)
        assignments.push_back(ask(need, input));
}

} // namespace cli
