#pragma once

#include "supplicant/ReplyLines.h"

#include <string>
#include <vector>

namespace test {

/// The first `count` lines as strings.
inline std::vector<std::string> toStrings(const platwifi::ReplyLines& lines) {
    return {lines.data(), lines.data() + lines.count};
}

} // namespace test
