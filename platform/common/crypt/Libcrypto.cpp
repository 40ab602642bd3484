#include "Libcrypto.h"

#include "CryptError.h"

#include <dlfcn.h>
#include <openssl/opensslv.h>
#include <string>

namespace platform {
namespace {

// That of the version which the headers describe.
std::string fileName() {
    return "libcrypto.so." + std::to_string(OPENSSL_SHLIB_VERSION);
}

[[noreturn]] void throwMissing() {
    const char* const cause = dlerror();
    throw CryptError("crypt.cipher", fileName() + " cannot be used (" +
                                         (cause ? cause : "no cause is known") +
                                         "); install OpenSSL 3 (Debian: libssl3)");
}

template <typename Function>
void find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (!function)
        throwMissing();
}

Libcrypto load() {
    void* const library = dlopen(fileName().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throwMissing();
    Libcrypto functions{};
    find(library, "ERR_set_mark", functions.ERR_set_mark);
    find(library, "ERR_pop_to_mark", functions.ERR_pop_to_mark);
    find(library, "EVP_CIPHER_CTX_new", functions.EVP_CIPHER_CTX_new);
    find(library, "EVP_CIPHER_CTX_free", functions.EVP_CIPHER_CTX_free);
    find(library, "EVP_CIPHER_CTX_ctrl", functions.EVP_CIPHER_CTX_ctrl);
    find(library, "EVP_CipherInit_ex", functions.EVP_CipherInit_ex);
    find(library, "EVP_CipherUpdate", functions.EVP_CipherUpdate);
    find(library, "EVP_CipherFinal_ex", functions.EVP_CipherFinal_ex);
    find(library, "EVP_aes_256_gcm", functions.EVP_aes_256_gcm);
    find(library, "EVP_sha256", functions.EVP_sha256);
    find(library, "EVP_EncodeBlock", functions.EVP_EncodeBlock);
    find(library, "EVP_DecodeBlock", functions.EVP_DecodeBlock);
    find(library, "HMAC", functions.HMAC);
    find(library, "RAND_bytes", functions.RAND_bytes);
    find(library, "RAND_priv_bytes", functions.RAND_priv_bytes);
    return functions;
}

} // namespace

const Libcrypto& libcrypto() {
    static const Libcrypto functions = load();
    return functions;
}

} // namespace platform
