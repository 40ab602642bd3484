#include "supplicant/ClientCommand.h"

#include "Paths.h"
#include "supplicant/ChildProcess.h"

namespace platwifi {

namespace {

bool run(PlatformMutex& launchMutex, const ArgumentList& arguments, const char* word,
         const ResultFile& result) {
    return result.unnamed().isOpen() ? runChild(launchMutex, arguments, word, result.unnamed())
                                     : runChild(launchMutex, arguments, word, result.path());
}

} // namespace

bool runClient(PlatformMutex& launchMutex, const ClientCommand& command,
               const InterfaceOption& option, const ResultFile& result,
               const ArgumentList& arguments) {
    return option.namesInterface() &&
           run(launchMutex, ArgumentList{paths::CLIENT, option.text(), command.word}.add(arguments),
               command.word, result);
}

bool runClient(PlatformMutex& launchMutex, const ClientCommand& command, const ResultFile& result) {
    return run(launchMutex, {paths::CLIENT, command.word}, command.word, result);
}

bool listProcesses(PlatformMutex& launchMutex, const InterfaceOption& option,
                   const ResultFile& result) {
    constexpr const char* LIST_ARGUMENTS = "arg"; // the process lister's command
    return option.isValid() &&
           run(launchMutex, {paths::PROCESS_LISTER, option.text(), LIST_ARGUMENTS}, LIST_ARGUMENTS,
               result);
}

} // namespace platwifi
