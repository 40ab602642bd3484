#include "support/ModifiedUtf8.h"

namespace test {
namespace {

unsigned at(const std::string& bytes, std::size_t index) {
    return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
}

bool isTail(unsigned byte) {
    return byte >= 0x80 && byte <= 0xBF;
}

// The length of the character that stands at `index`, or 0 where there is none.
std::size_t characterLength(const std::string& bytes, std::size_t index) {
    const unsigned first = at(bytes, index);
    const unsigned second = at(bytes, index + 1);
    if (first >= 0x01 && first <= 0x7F)
        return 1;
    if (first == 0xC0 && second == 0x80)
        return 2;
    if (first >= 0xC2 && first <= 0xDF && isTail(second))
        return 2;
    const unsigned lowestSecond = first == 0xE0 ? 0xA0 : 0x80;
    if (first >= 0xE0 && first <= 0xEF && isTail(second) && second >= lowestSecond &&
        isTail(at(bytes, index + 2)))
        return 3;
    return 0;
}

} // namespace

bool isModifiedUtf8(const std::string& bytes) {
    std::size_t index = 0;
    while (index < bytes.size()) {
        const std::size_t length = characterLength(bytes, index);
        if (length == 0)
            return false;
        index += length;
    }
    return true;
}

} // namespace test
