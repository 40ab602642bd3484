#include "supplicant/ClientCommand.h"

#include "Paths.h"
#include "supplicant/ChildProcess.h"

namespace platwifi {

bool runClient(PlatformMutex& launchMutex, const ClientCommand& command,
               const InterfaceOption& option, const ResultFile& result,
               const ArgumentList& arguments) {
    return option.namesInterface() &&
           runChild(launchMutex,
                    ArgumentList{paths::CLIENT, option.text(), command.word}.add(arguments),
                    command.word, result.path());
}

bool runClient(PlatformMutex& launchMutex, const ClientCommand& command, const ResultFile& result) {
    return runChild(launchMutex, {paths::CLIENT, command.word}, command.word, result.path());
}

} // namespace platwifi
