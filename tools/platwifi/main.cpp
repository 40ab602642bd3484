#include "CommandLine.h"
#include "completion/Completion.h"
#include "process/Notifier.h"

int main(int count, char* arguments[]) {
    if (cli::isNotifier(count, arguments))
        cli::runNotifier(arguments);
    if (cli::isCompletion(count, arguments))
        return cli::complete(count, arguments);
    return cli::runCommandLine(count, arguments);
}
