#include "display/SignalBars.h"

#include <cstring>
#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale() is not of the C library

namespace cli {
namespace {

constexpr const char* BLOCKS[] = {"▂", "▄", "▆", "█"};
constexpr const char* PLAIN_BAR = "#";
constexpr const char* EMPTY = "_";
constexpr int PERCENT_A_BAR = 25;

} // namespace

// A signal that was received has one bar at least, but for 0 %.
std::string signalBars(int percent, bool hasBlocks) {
    std::string bars;
    int least = 0;
    for (const char* const block : BLOCKS) {
        const char* const lit = hasBlocks ? block : PLAIN_BAR;
        bars += percent > least ? lit : EMPTY;
        least += PERCENT_A_BAR;
    }
    return bars;
}

bool isUtf8Locale() {
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (!locale)
        return false;
    const bool isUtf8 = std::strcmp(nl_langinfo_l(CODESET, locale), "UTF-8") == 0;
    freelocale(locale);
    return isUtf8;
}

} // namespace cli
