#include "CommandLine.h"

#include "commands/Arguments.h"
#include "commands/CommandTable.h"
#include "edits/ConsoleInput.h"
#include "host/Host.h"
#include "process/Interrupt.h"
#include "process/Notifier.h"
#include "process/StandardStreams.h"

#include <csignal>
#include <iostream>

namespace cli {
namespace {

int printError(const std::string& message, int status) {
    std::cerr << "platwifi: " << message << '\n';
    return status;
}

// A failure without a message is none to report: the reader has closed its end of the pipe.
int printFailure(const Failure& error) {
    return error.what()[0] == '\0' ? error.status : printError(error.what(), error.status);
}

// If the output cannot be written, that is the error that counts.
int flushed(Status status) {
    try {
        flushOutput();
        return status;
    } catch (const Failure& error) {
        return printFailure(error);
    }
}

// Ctrl-C also ends the client, so that its command fails: then the interrupt is what counts.
void runInterruptibly(const Command& command, Context& context, Interrupt& interrupt) {
    try {
        command.run(context);
    } catch (const Failure&) {
        interrupt.checkFinally();
        throw;
    }
}

int run(const Command& command, const Request& request, char* arguments[]) {
    Interrupt interrupt;
    const ConsoleInput input(interrupt);
    Context context{request, interrupt, input, Console::of(1), Console::of(2)};
    try {
        runInterruptibly(command, context, interrupt);
        const int status = flushed(context.status);
        if (context.hasSaved)
            notifyOtherProcesses(arguments, status);
        return status;
    } catch (const Interrupted& end) {
        std::cout << std::flush;
        printError(end.message, FAILED);
        if (context.hasSaved)
            notifyOtherProcesses(arguments, -end.signal);
        Interrupt::endBySignal(end.signal);
    }
}

} // namespace

int runCommandLine(int count, char* arguments[]) {
    fillClosedStreams();
    std::signal(SIGPIPE, SIG_IGN);
    try {
        Request request;
        const Command* const command = readArguments(count, arguments, request);
        return command ? run(*command, request, arguments) : flushed(DONE);
    } catch (const WrongUse& error) {
        return printError(error.what(), WRONG_USE);
    } catch (const Failure& error) {
        return printFailure(error);
    } catch (const std::exception& error) {
        return printError(std::string("something went wrong: ") + error.what(), FAILED);
    }
}

} // namespace cli
