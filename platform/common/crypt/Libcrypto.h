#pragma once

#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

namespace platform {

/// The functions of OpenSSL's libcrypto that the cipher uses, under their own names.
struct Libcrypto {
    decltype(&::ERR_set_mark) ERR_set_mark;
    decltype(&::ERR_pop_to_mark) ERR_pop_to_mark;
    decltype(&::EVP_CIPHER_CTX_new) EVP_CIPHER_CTX_new;
    decltype(&::EVP_CIPHER_CTX_free) EVP_CIPHER_CTX_free;
    decltype(&::EVP_CIPHER_CTX_ctrl) EVP_CIPHER_CTX_ctrl;
    decltype(&::EVP_CipherInit_ex) EVP_CipherInit_ex;
    decltype(&::EVP_CipherUpdate) EVP_CipherUpdate;
    decltype(&::EVP_CipherFinal_ex) EVP_CipherFinal_ex;
    decltype(&::EVP_aes_256_gcm) EVP_aes_256_gcm;
    decltype(&::EVP_sha256) EVP_sha256;
    decltype(&::EVP_EncodeBlock) EVP_EncodeBlock;
    decltype(&::EVP_DecodeBlock) EVP_DecodeBlock;
    decltype(&::HMAC) HMAC;
    decltype(&::RAND_bytes) RAND_bytes;
    decltype(&::RAND_priv_bytes) RAND_priv_bytes;
};

/// The library, which the first call loads: that takes about as long as starting a small program, and most
/// processes never use the cipher. It stays loaded. Any thread may call this.
/// @throws CryptError  where it cannot be loaded; the next call tries again
const Libcrypto& libcrypto();

} // namespace platform
