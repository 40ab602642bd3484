#include "jni/CipherCode.h"

#include "Profile.h"
#include "model/WifiTypes.h"

namespace platwifi {
namespace {

struct Code {
    unsigned int code;
    CipherSets sets;
};

const Code CODES[] = {
    {PAIRWISE_TKIP | PAIRWISE_CCMP, {PAIRWISE_CCMP, GROUP_TKIP}},
    {GROUP_WEP40, {std::nullopt, GROUP_WEP40}},
    {GROUP_WEP104, {std::nullopt, GROUP_WEP104}},
    {PAIRWISE_NONE, {PAIRWISE_NONE, std::nullopt}},
};

constexpr unsigned int BOTH =
    PAIRWISE_TKIP | PAIRWISE_CCMP | PAIRWISE_GCMP | PAIRWISE_GCMP_256 | PAIRWISE_CCMP_256;
constexpr unsigned int PAIRWISE_ONLY = PAIRWISE_NONE;
constexpr unsigned int GROUP_ONLY = GROUP_WEP40 | GROUP_WEP104;

std::optional<unsigned int> unlessEmpty(unsigned int set) {
    return set != 0 ? std::optional<unsigned int>(set) : std::nullopt;
}

} // namespace

CipherSets cipherSetsOf(unsigned int code) {
    if (rule::SETS_ARE_WRITTEN_WHOLE())
        return {unlessEmpty(code & (BOTH | PAIRWISE_ONLY)),
                unlessEmpty(code & (BOTH | GROUP_ONLY))};
    for (const Code& special : CODES) {
        if (special.code == code)
            return special.sets;
    }
    return {code, code};
}

} // namespace platwifi
