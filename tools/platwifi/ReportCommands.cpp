// The whole state in one document, or as a listing for developers.

#include "Commands.h"
#include "Failure.h"
#include "Host.h"
#include "jni/ServiceFunctions.h"
#include "platform/BufferedXWriter.h"
#include "settings/WifiHostSettings.h"

#include <iostream>
#include <unistd.h>

namespace cli {

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

// The library prints its listing to standard error; here it is the result.
void dump(Context& context) {
    Host host(context);
    WifiHostSettings& settings = host.settings();
    std::cerr << std::flush;
    if (dup2(STDOUT_FILENO, STDERR_FILENO) < 0)
        throw Failure("standard output is closed; open it, then try again");
    settings.dump();
}

} // namespace cli
