#pragma once

namespace fuzz {

/// What WifiUtil::launchProcess() does, but by the model of a supplicant: writes its reply to
/// `resultFile`, and tells whether its client has exited with status 0. Waits of the library take no
/// time in a program that is linked with this.
bool launchOnModel(const char* command, const char* interfaceArg, const char* arg1,
                   const char* arg2, const char* arg3, const char* resultFile);

} // namespace fuzz
