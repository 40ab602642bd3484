// The cipher's key file. The cipher itself checks it, when it deciphers a text.

#include "checks/CheckFunctions.h"
#include "platform/Crypt.h"

#include <memory>

namespace cli {
namespace {

// Long enough for an enciphered text, but of no key: the cipher reads its key file and then fails.
constexpr const char* UNDECIPHERABLE = "crypt1:AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";

// A message of the cipher has the cause, a semicolon and the next step.
Finding findingOf(const std::string& message) {
    const auto end = message.find("; ");
    if (end == std::string::npos)
        return bad(message, "");
    return bad(message.substr(0, end), message.substr(end + 2));
}

} // namespace

Finding checkKeyFile(const std::string&) {
    ErrorHandler errors;
    char* plain = nullptr;
    Crypt::decrypt(&errors, UNDECIPHERABLE, &plain);
    const std::unique_ptr<char[]> owner(plain);
    const MessageBundle* const error = errors.savedError();
    const std::string id = error ? error->id() : "";
    if (id == "crypt.no-key")
        return good("none yet: it is made when the first secret is enciphered");
    if (!error || id == "crypt.wrong-key" || id == "crypt.damaged")
        return good("is whole, and closed to other users");
    return findingOf(error->text());
}

} // namespace cli
