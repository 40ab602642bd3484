#include "CommandLine.h"
#include "OtherProcesses.h"

int main(int count, char* arguments[]) {
    if (cli::isTeller(count, arguments))
        cli::tell(arguments);
    return cli::runCommandLine(count, arguments);
}
