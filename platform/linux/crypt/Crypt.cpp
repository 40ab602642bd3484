#include "platform/Crypt.h"

#include "Base64.h"
#include "Cipher.h"
#include "CryptError.h"
#include "KeyFile.h"
#include "KeyPath.h"

#include <cstring>
#include <exception>
#include <memory>
#include <openssl/err.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::string_view VERSION_NAME = "crypt";
constexpr std::string_view PREFIX = "crypt1:";

// Longer than any text that encrypt() makes.
constexpr std::size_t LONGEST_TEXT = 2 * Crypt::MAXIMUM_LENGTH;

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

SecretBytes readKey(MissingKey missing) {
    return readKeyFile(keyPath(geteuid()), missing);
}

// "crypt", digits, colon.
bool isOtherVersion(std::string_view text) {
    if (!startsWith(text, VERSION_NAME))
        return false;
    const auto end = text.find_first_not_of("0123456789", VERSION_NAME.size());
    return end != std::string::npos && end > VERSION_NAME.size() && text[end] == ':';
}

Bytes decodeBody(std::string_view text) {
    Bytes body;
    if (!startsWith(text, PREFIX) && isOtherVersion(text)) {
        throw CryptError("crypt.other-version",
                         "the text was enciphered by another version of this "
                         "program; encipher the secret again with this one");
    }
    if (!startsWith(text, PREFIX) || text.size() > LONGEST_TEXT ||
        !fromBase64(text.substr(PREFIX.size()), body) || body.size() < KEY_NAME_BYTES)
        throwDamaged();
    return body;
}

void checkKeyName(const Bytes& body, const std::string& name) {
    if (std::memcmp(body.data(), name.data(), KEY_NAME_BYTES) != 0) {
        throw CryptError("crypt.wrong-key",
                         "the text was enciphered with another key, or its "
                         "beginning is damaged; restore that key file, or encipher "
                         "the secret again");
    }
}

std::string boundTo(const std::string& keyName) {
    return std::string(PREFIX) + keyName;
}

// The array that the caller of Crypt frees with delete[].
std::unique_ptr<char[]> newResult(const void* text, std::size_t size) {
    auto result = std::make_unique<char[]>(size);
    std::memcpy(result.get(), text, size);
    return result;
}

std::unique_ptr<char[]> encipher(const char* plain) {
    const std::size_t size = std::strlen(plain);
    if (size > Crypt::MAXIMUM_LENGTH)
        throw CryptError("crypt.too-long", "a secret of more than 1 MiB cannot be enciphered; "
                                           "shorten it");
    const SecretBytes key = readKey(MissingKey::MAKE);
    const std::string name = nameOfKey(key);
    const Bytes sealed = seal(key, boundTo(name), std::string_view(plain, size));
    Bytes body(name.begin(), name.end());
    body.insert(body.end(), sealed.begin(), sealed.end());
    const std::string text = std::string(PREFIX) + toBase64(body);
    return newResult(text.c_str(), text.size() + 1);
}

std::unique_ptr<char[]> decipher(const char* enciphered) {
    const Bytes body = decodeBody(enciphered);
    const SecretBytes key = readKey(MissingKey::FAIL);
    const std::string name = nameOfKey(key);
    checkKeyName(body, name);
    const Bytes sealed(body.begin() + KEY_NAME_BYTES, body.end());
    const SecretBytes plain = unseal(key, boundTo(name), sealed);
    return newResult(plain.data(), plain.size());
}

void report(ErrorHandler* errors, const char* id, const char* text) noexcept {
    if (!errors)
        return;
    try {
        MessageBundle bundle(id, text);
        errors->error(&bundle);
    } catch (...) {
        // The handler itself failed. The status that is returned shows the error.
    }
}

/// Restores the calling thread's queue of OpenSSL errors, which belongs to the program.
class KeptErrorQueue {
public:
    KeptErrorQueue() { ERR_set_mark(); }
    ~KeptErrorQueue() { ERR_pop_to_mark(); }
    KeptErrorQueue(const KeptErrorQueue&) = delete;
    KeptErrorQueue& operator=(const KeptErrorQueue&) = delete;
};

using Operation = std::unique_ptr<char[]> (*)(const char*);

int run(Operation operation, ErrorHandler* errors, const char* text, char** result) noexcept {
    const KeptErrorQueue kept;
    if (result)
        *result = nullptr;
    try {
        if (!text || !result)
            throw CryptError("crypt.null-input", "no text to encipher or decipher was given");
        *result = operation(text).release();
        return 0;
    } catch (const CryptError& error) {
        report(errors, error.id(), error.what());
    } catch (const std::exception&) {
        report(errors, "crypt.no-memory", "no memory to encipher or decipher; free some and retry");
    }
    return 1;
}

} // namespace
} // namespace platform

int Crypt::encrypt(ErrorHandler* errors, const char* plain, char** result) noexcept {
    return platform::run(platform::encipher, errors, plain, result);
}

int Crypt::decrypt(ErrorHandler* errors, const char* enciphered, char** result) noexcept {
    return platform::run(platform::decipher, errors, enciphered, result);
}
