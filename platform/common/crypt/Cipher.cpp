#include "Cipher.h"

#include "CryptError.h"
#include "Libcrypto.h"

#include <memory>

namespace platform {
namespace {

constexpr std::size_t NONCE_BYTES = 12;
constexpr std::size_t TAG_BYTES = 16;

// The HMAC of this label identifies a key and reveals nothing about it.
constexpr std::string_view NAME_LABEL = "name of a crypt1 key";

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

void check(int result) {
    if (result != 1)
        throw CryptError("crypt.cipher", "the cipher library failed; check that libcrypto is whole "
                                         "and offers AES-256-GCM");
}

/// One run of AES-256-GCM in either direction.
class Gcm {
public:
    Gcm(bool encipher, const SecretBytes& key, const unsigned char* nonce)
        : m_context(libcrypto().EVP_CIPHER_CTX_new(), libcrypto().EVP_CIPHER_CTX_free) {
        check(m_context ? 1 : 0);
        check(libcrypto().EVP_CipherInit_ex(context(), libcrypto().EVP_aes_256_gcm(), nullptr,
                                            key.data(), nonce, encipher ? 1 : 0));
    }

    void authenticate(std::string_view bound) { update(nullptr, bytesOf(bound), bound.size()); }

    void update(unsigned char* out, const unsigned char* in, std::size_t size) {
        int written = 0;
        check(libcrypto().EVP_CipherUpdate(context(), out, &written, in, static_cast<int>(size)));
    }

    bool finish() {
        unsigned char rest[EVP_MAX_BLOCK_LENGTH]; // a stream has none
        int written = 0;
        return libcrypto().EVP_CipherFinal_ex(context(), rest, &written) == 1;
    }

    void readTag(unsigned char* tag) {
        check(libcrypto().EVP_CIPHER_CTX_ctrl(context(), EVP_CTRL_AEAD_GET_TAG, TAG_BYTES, tag));
    }

    void expectTag(const unsigned char* tag) {
        check(libcrypto().EVP_CIPHER_CTX_ctrl(context(), EVP_CTRL_AEAD_SET_TAG, TAG_BYTES,
                                              const_cast<unsigned char*>(tag)));
    }

private:
    EVP_CIPHER_CTX* context() const { return m_context.get(); }

    std::unique_ptr<EVP_CIPHER_CTX, decltype(Libcrypto::EVP_CIPHER_CTX_free)> m_context;
};

} // namespace

SecretBytes randomKey() {
    SecretBytes key(KEY_BYTES);
    if (libcrypto().RAND_priv_bytes(key.data(), static_cast<int>(key.size())) != 1)
        throw CryptError("crypt.cipher",
                         "the cipher library gave no random bytes; check libcrypto");
    return key;
}

Bytes seal(const SecretBytes& key, const std::string& bound, std::string_view plain) {
    Bytes sealed(NONCE_BYTES + plain.size() + TAG_BYTES);
    unsigned char* const nonce = sealed.data();
    unsigned char* const body = nonce + NONCE_BYTES;
    check(libcrypto().RAND_bytes(nonce, NONCE_BYTES));
    Gcm gcm(true, key, nonce);
    gcm.authenticate(bound);
    gcm.update(body, bytesOf(plain), plain.size());
    check(gcm.finish() ? 1 : 0);
    gcm.readTag(body + plain.size());
    return sealed;
}

SecretBytes unseal(const SecretBytes& key, const std::string& bound, const Bytes& sealed) {
    if (sealed.size() < NONCE_BYTES + TAG_BYTES)
        throwDamaged();
    const std::size_t size = sealed.size() - NONCE_BYTES - TAG_BYTES;
    const unsigned char* const body = sealed.data() + NONCE_BYTES;
    SecretBytes plain(size + 1);
    Gcm gcm(false, key, sealed.data());
    gcm.authenticate(bound);
    gcm.update(plain.data(), body, size);
    gcm.expectTag(body + size);
    if (!gcm.finish())
        throwDamaged();
    return plain;
}

std::string nameOfKey(const SecretBytes& key) {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    const unsigned char* const made =
        libcrypto().HMAC(libcrypto().EVP_sha256(), key.data(), static_cast<int>(key.size()),
                         bytesOf(NAME_LABEL), NAME_LABEL.size(), digest, &size);
    check(made ? 1 : 0);
    return std::string(digest, digest + KEY_NAME_BYTES);
}

} // namespace platform
