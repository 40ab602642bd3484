// The XML document, and the dump for developers.

#include "commands/Commands.h"
#include "host/Host.h"
#include "jni/ServiceFunctions.h"
#include "platform/BufferedXWriter.h"
#include "platform/FileDescriptor.h"
#include "settings/WifiHostSettings.h"

#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace cli {
namespace {

/// Redirects standard error to standard output while an object exists.
class ErrorsToOutput {
public:
    ErrorsToOutput() : m_errors(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)) {
        dup2(STDOUT_FILENO, STDERR_FILENO);
    }
    ~ErrorsToOutput() { dup2(m_errors.number(), STDERR_FILENO); }
    ErrorsToOutput(const ErrorsToOutput&) = delete;
    ErrorsToOutput& operator=(const ErrorsToOutput&) = delete;

private:
    const platform::FileDescriptor m_errors;
};

} // namespace

void writeXml(Context& context) {
    Host host(context);
    host.settings();
    BufferedXWriter document;
    ErrorHandler errors;
    if (getWifiHostSettingsXML(&document, &errors, context.request.full) == 0)
        throw Failure("there is no memory for the document; end some programs, then try again");
    if (const MessageBundle* const error = errors.savedError())
        throw Failure(error->text());
    std::cout.write(document.text(), static_cast<std::streamsize>(document.length()));
}

// The library prints the dump to standard error; here it is the result.
void dump(Context& context) {
    Host host(context);
    WifiHostSettings& settings = host.settings();
    bool isWritten = false;
    {
        const ErrorsToOutput redirection;
        settings.dump();
        isWritten = std::ferror(stderr) == 0;
    }
    if (!isWritten)
        std::cout.setstate(std::ios::badbit); // reported by flushOutput()
}

} // namespace cli
