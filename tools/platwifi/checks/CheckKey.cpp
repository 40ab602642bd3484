// The cipher's key file. The cipher itself checks it, when it deciphers a text. This program needs it for
// the document with all secrets alone.

#include "checks/CheckFunctions.h"
#include "platform/Crypt.h"

#include <memory>

namespace cli {
namespace {

// Long enough for an enciphered text, but of no key: the cipher reads its key file and then fails.
constexpr const char* UNDECIPHERABLE = "crypt1:AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";

constexpr const char* WHO_NEEDS_IT = ": a Java service of this user, and xml --full, fail";

// A message of the cipher has the cause, a semicolon and the next step.
Finding findingOf(const std::string& message) {
    const auto end = message.find("; ");
    const std::string step = end == std::string::npos ? "" : message.substr(end + 2);
    return note(message.substr(0, end) + WHO_NEEDS_IT, step);
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
        return good("none yet: a Java service, or xml --full, makes it; this program needs none");
    if (!error || id == "crypt.wrong-key" || id == "crypt.damaged")
        return good("is whole, and closed to other users");
    return findingOf(error->text());
}

} // namespace cli
