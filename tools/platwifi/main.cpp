#include "CommandLine.h"
#include "completion/Completion.h"
#include "jni/ServiceFunctions.h"
#include "platform/Environment.h"
#include "process/Notifier.h"

int main(int count, char* arguments[]) {
    if (!platform::environmentValue("PLATWIFI_PROFILE"))
        setWifiProfile(nullptr, "modern"); // before anything asks for the profile
    if (cli::isNotifier(count, arguments))
        cli::runNotifier(arguments);
    if (cli::isCompletion(count, arguments))
        return cli::complete(count, arguments);
    return cli::runCommandLine(count, arguments);
}
