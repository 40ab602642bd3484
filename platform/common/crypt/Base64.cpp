#include "Base64.h"

#include "Libcrypto.h"

#include <algorithm>

namespace platform {
namespace {

// Base64 works in whole groups of characters and bytes. EVP_EncodeBlock() appends a NUL.
constexpr std::size_t TEXT_GROUP = 4;
constexpr std::size_t BYTE_GROUP = 3;

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

std::size_t paddingOf(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.end() - BYTE_GROUP, text.end(), '='));
}

} // namespace

std::string toBase64(const Bytes& bytes) {
    const std::size_t groups = (bytes.size() + BYTE_GROUP - 1) / BYTE_GROUP;
    std::vector<unsigned char> text(groups * TEXT_GROUP + 1);
    libcrypto().EVP_EncodeBlock(text.data(), bytes.data(), static_cast<int>(bytes.size()));
    return std::string(text.begin(), text.end() - 1);
}

bool fromBase64(std::string_view text, Bytes& bytes) {
    if (text.empty() || text.size() % TEXT_GROUP != 0)
        return false;
    bytes.resize(text.size() / TEXT_GROUP * BYTE_GROUP);
    if (libcrypto().EVP_DecodeBlock(bytes.data(), bytesOf(text), static_cast<int>(text.size())) < 0)
        return false;
    bytes.resize(bytes.size() - paddingOf(text));
    // The decoder accepts blanks, misplaced padding and spare bits; toBase64() makes none.
    return toBase64(bytes) == text;
}

} // namespace platform
