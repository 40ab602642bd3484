#include "display/Text.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale() is not of the C library
#include <optional>

namespace cli {
namespace {

constexpr wchar_t ARABIC_LETTER_MARK = 0x061C;
constexpr wchar_t ZERO_WIDTH_JOINER = 0x200D;
constexpr wchar_t LEFT_TO_RIGHT_MARK = 0x200E;
constexpr wchar_t RIGHT_TO_LEFT_MARK = 0x200F;
constexpr wchar_t LINE_SEPARATOR = 0x2028;
constexpr wchar_t LAST_DIRECTION = 0x202E;
constexpr wchar_t FIRST_ISOLATE = 0x2066;
constexpr wchar_t LAST_ISOLATE = 0x2069;

// Made once and never freed: that takes reading files. Null where the system has no such locale.
locale_t utf8() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

/// Makes this thread decode UTF-8 while an object exists. SSIDs are UTF-8 in every locale of the user.
class Utf8Locale {
public:
    Utf8Locale() : m_previous(utf8() ? uselocale(utf8()) : nullptr) {}
    ~Utf8Locale() {
        if (m_previous)
            uselocale(m_previous);
    }
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

private:
    locale_t m_previous;
};

// A character, or a byte that is no part of one.
struct Character {
    std::size_t length;
    wchar_t code;
    bool isValid;
};

Character characterAt(const std::string& bytes, std::size_t place) {
    wchar_t code = 0;
    std::mbstate_t state{};
    const std::size_t length =
        std::mbrtowc(&code, bytes.data() + place, bytes.size() - place, &state);
    const bool isValid = length > 0 && length <= bytes.size() - place;
    return isValid ? Character{length, code, true} : Character{1, 0, false};
}

// The direction of writing also changes how the rest of the line is shown.
bool changesDirection(wchar_t code) {
    return (code >= LINE_SEPARATOR && code <= LAST_DIRECTION) ||
           (code >= FIRST_ISOLATE && code <= LAST_ISOLATE) || code == ARABIC_LETTER_MARK ||
           code == LEFT_TO_RIGHT_MARK || code == RIGHT_TO_LEFT_MARK;
}

bool isPrintable(const Character& character) {
    if (!character.isValid || changesDirection(character.code))
        return false;
    return character.code == ZERO_WIDTH_JOINER || wcwidth(character.code) >= 0;
}

unsigned int widthOf(wchar_t code) {
    const int width = wcwidth(code);
    return width > 0 ? static_cast<unsigned int>(width) : 0;
}

std::string escaped(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        char escape[5];
        std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(byte));
        text += escape;
    }
    return text;
}

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

// Calls `visit` with each character and its bytes, until it returns false. ASCII is the same in every locale, so
// most texts need none.
template <typename Visit>
void forEach(const std::string& bytes, Visit visit) {
    std::optional<Utf8Locale> locale;
    if (!std::all_of(bytes.begin(), bytes.end(), isAscii))
        locale.emplace();
    for (std::size_t place = 0; place < bytes.size();) {
        const Character character = characterAt(bytes, place);
        if (!visit(character, bytes.substr(place, character.length)))
            return;
        place += character.length;
    }
}

} // namespace

std::string printable(const std::string& bytes) {
    std::string text;
    forEach(bytes, [&](const Character& character, const std::string& own) {
        text += isPrintable(character) ? own : escaped(own);
        return true;
    });
    return text;
}

bool isUtf8(const std::string& bytes) {
    bool isValid = true;
    forEach(bytes, [&](const Character& character, const std::string&) {
        isValid = character.isValid;
        return isValid;
    });
    return isValid;
}

unsigned int cellsOf(const std::string& text) {
    unsigned int cells = 0;
    forEach(text, [&](const Character& character, const std::string&) {
        cells += widthOf(character.code);
        return true;
    });
    return cells;
}

std::string padded(const std::string& text, unsigned int cells) {
    return text + std::string(cells - std::min(cells, cellsOf(text)), ' ');
}

std::string cutTo(const std::string& text, unsigned int cells) {
    if (cellsOf(text) <= cells)
        return text;
    std::string beginning;
    unsigned int taken = 1; // the "…"
    forEach(text, [&](const Character& character, const std::string& own) {
        taken += widthOf(character.code);
        if (taken > cells)
            return false;
        beginning += own;
        return true;
    });
    return cells > 0 ? beginning + "…" : "";
}

} // namespace cli
