#pragma once

#include "supplicant/Arguments.h"

namespace fuzz {

/// Takes the place of platwifi::runChild(): the model of a supplicant answers. Writes its reply to
/// `resultFile`, and returns whether its client has exited with status 0. Waits of the library take no
/// time in a program that is linked with this.
bool runOnModel(const platwifi::ArgumentList& arguments, const char* resultFile);

} // namespace fuzz
