// The key file of the cipher, through the cipher: it alone knows where that is and what it must be.

#include "checks/CheckFunctions.h"
#include "platform/Crypt.h"

#include <memory>

namespace cli {
namespace {

// Long enough to be an enciphered text, and made by no key: the key file is read, and that is all.
constexpr const char* OF_NO_KEY = "crypt1:AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";

// The messages of the cipher tell the cause, and the next step behind a semicolon.
Finding inWords(const std::string& message) {
    const auto end = message.find("; ");
    if (end == std::string::npos)
        return bad(message, "");
    return bad(message.substr(0, end), message.substr(end + 2));
}

} // namespace

Finding checkKeyFile(const std::string&) {
    ErrorHandler errors;
    char* plain = nullptr;
    Crypt::decrypt(&errors, OF_NO_KEY, &plain);
    const std::unique_ptr<char[]> owner(plain);
    const MessageBundle* const error = errors.savedError();
    const std::string id = error ? error->id() : "";
    if (id == "crypt.no-key")
        return good("none yet: it is made when the first secret is enciphered");
    if (!error || id == "crypt.wrong-key" || id == "crypt.damaged")
        return good("is whole, and closed to other users");
    return inWords(error->text());
}

} // namespace cli
