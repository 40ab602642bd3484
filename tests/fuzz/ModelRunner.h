#pragma once

#include "supplicant/Arguments.h"

namespace fuzz {

/// Replaces platwifi::runChild(): writes the reply of the model of a supplicant to `resultFile`, and returns
/// whether the client's exit status is 0. In a program that links this, waits of the library take no time.
bool runOnModel(const platwifi::ArgumentList& arguments, const char* resultFile);

} // namespace fuzz
