#include "support/RandomText.h"

namespace test {
namespace {

constexpr unsigned char SPECIAL[] = {0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xB2, 0xBD, 0xBE, 0xBF,
                                     0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE4, 0xED, 0xEF, 0xF0, 0xF4,
                                     0xF5, 0xFF, '&',  '<',  '"',  '\n', '\r', '\t', 0x01, ' '};

unsigned below(std::mt19937& random, unsigned limit) {
    return std::uniform_int_distribution<unsigned>(0, limit - 1)(random);
}

} // namespace

std::string randomBytes(std::mt19937& random) {
    std::string text(below(random, 41), '\0');
    for (char& byte : text) {
        const unsigned any = 1 + below(random, 255);
        const unsigned special = SPECIAL[below(random, sizeof(SPECIAL))];
        byte = static_cast<char>(static_cast<unsigned char>(below(random, 2) ? any : special));
    }
    return text;
}

} // namespace test
