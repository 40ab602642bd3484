#include "CommandLine.h"
#include "completion/Completion.h"
#include "process/OtherProcesses.h"

int main(int count, char* arguments[]) {
    if (cli::isTeller(count, arguments))
        cli::tell(arguments);
    if (cli::isCompletion(count, arguments))
        return cli::complete(count, arguments);
    return cli::runCommandLine(count, arguments);
}
