#include "jni/CipherCode.h"

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

} // namespace

CipherSets cipherSetsOf(unsigned int code) {
    for (const Code& special : CODES) {
        if (special.code == code)
            return special.sets;
    }
    return {code, code};
}

} // namespace platwifi
