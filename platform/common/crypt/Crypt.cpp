#include "platform/Crypt.h"

#include "Base64.h"
#include "Cipher.h"
#include "CryptError.h"
#include "KeyFile.h"
#include "KeyPath.h"
#include "Libcrypto.h"

#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::string_view VERSION_NAME = "crypt";
constexpr std::string_view PREFIX = "crypt1:";
constexpr std::string_view PROCESS_PREFIX = "process1:"; // of a text for this process alone

// Longer than any text that encrypt() makes.
constexpr std::size_t LONGEST_TEXT = 2 * Crypt::MAXIMUM_LENGTH;

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

SecretBytes readKey(MissingKey missing) {
    return readKeyFile(keyPath(geteuid()), missing);
}

// Never destroyed: other threads may use it while the process ends.
const SecretBytes& processKey() {
    static const auto* const key = new SecretBytes(randomKey());
    return *key;
}

// "crypt", digits, colon.
bool isOtherVersion(std::string_view text) {
    if (!startsWith(text, VERSION_NAME))
        return false;
    const auto end = text.find_first_not_of("0123456789", VERSION_NAME.size());
    return end != std::string::npos && end > VERSION_NAME.size() && text[end] == ':';
}

// What follows the prefix.
Bytes decodeBody(std::string_view text, std::string_view prefix) {
    Bytes body;
    if (!startsWith(text, prefix) && isOtherVersion(text)) {
        throw CryptError("crypt.other-version",
                         "the text was enciphered by another version of this "
                         "program; encipher the secret again with this one");
    }
    if (!startsWith(text, prefix) || text.size() > LONGEST_TEXT ||
        !fromBase64(text.substr(prefix.size()), body) || body.size() < KEY_NAME_BYTES)
        throwDamaged();
    return body;
}

[[noreturn]] void throwWrongKey(std::string_view prefix) {
    if (prefix == PROCESS_PREFIX) {
        throw CryptError("crypt.other-process",
                         "another process has enciphered the text for itself alone, or its "
                         "beginning is damaged; encipher the secret again");
    }
    throw CryptError("crypt.wrong-key", "the text was enciphered with another key, or its "
                                        "beginning is damaged; restore that key file, or encipher "
                                        "the secret again");
}

// What is authenticated together with the secret.
std::string boundTo(std::string_view prefix, const std::string& keyName) {
    return std::string(prefix) + keyName;
}

// The array that the caller of Crypt frees with delete[].
std::unique_ptr<char[]> newResult(const void* text, std::size_t size) {
    auto result = std::make_unique<char[]>(size);
    std::memcpy(result.get(), text, size);
    return result;
}

std::unique_ptr<char[]> encipherWith(const SecretBytes& key, std::string_view prefix,
                                     std::string_view plain) {
    const std::string name = nameOfKey(key);
    const Bytes sealed = seal(key, boundTo(prefix, name), plain);
    Bytes body(name.begin(), name.end());
    body.insert(body.end(), sealed.begin(), sealed.end());
    const std::string text = std::string(prefix) + toBase64(body);
    return newResult(text.c_str(), text.size() + 1);
}

std::unique_ptr<char[]> decipherWith(const SecretBytes& key, std::string_view prefix,
                                     const Bytes& body) {
    const std::string name = nameOfKey(key);
    if (std::memcmp(body.data(), name.data(), KEY_NAME_BYTES) != 0)
        throwWrongKey(prefix);
    const Bytes sealed(body.begin() + KEY_NAME_BYTES, body.end());
    const SecretBytes plain = unseal(key, boundTo(prefix, name), sealed);
    return newResult(plain.data(), plain.size());
}

std::string_view checkedSecret(const char* plain) {
    const std::string_view secret = plain;
    if (secret.size() > Crypt::MAXIMUM_LENGTH)
        throw CryptError("crypt.too-long", "a secret of more than 1 MiB cannot be enciphered; "
                                           "shorten it");
    return secret;
}

std::unique_ptr<char[]> encipher(const char* plain) {
    const std::string_view secret = checkedSecret(plain);
    return encipherWith(readKey(MissingKey::MAKE), PREFIX, secret);
}

std::unique_ptr<char[]> encipherForThisProcess(const char* plain) {
    return encipherWith(processKey(), PROCESS_PREFIX, checkedSecret(plain));
}

std::unique_ptr<char[]> decipher(const char* enciphered) {
    if (startsWith(enciphered, PROCESS_PREFIX))
        return decipherWith(processKey(), PROCESS_PREFIX, decodeBody(enciphered, PROCESS_PREFIX));
    const Bytes body = decodeBody(enciphered, PREFIX);
    return decipherWith(readKey(MissingKey::FAIL), PREFIX, body);
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
    KeptErrorQueue() { libcrypto().ERR_set_mark(); }
    ~KeptErrorQueue() { libcrypto().ERR_pop_to_mark(); }
    KeptErrorQueue(const KeptErrorQueue&) = delete;
    KeptErrorQueue& operator=(const KeptErrorQueue&) = delete;
};

using Operation = std::unique_ptr<char[]> (*)(const char*);

int run(Operation operation, ErrorHandler* errors, const char* text, char** result) noexcept {
    if (result)
        *result = nullptr;
    try {
        if (!text || !result)
            throw CryptError("crypt.null-input", "no text to encipher or decipher was given");
        const KeptErrorQueue kept;
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

int Crypt::encryptForThisProcess(ErrorHandler* errors, const char* plain, char** result) noexcept {
    return platform::run(platform::encipherForThisProcess, errors, plain, result);
}

int Crypt::decrypt(ErrorHandler* errors, const char* enciphered, char** result) noexcept {
    return platform::run(platform::decipher, errors, enciphered, result);
}
