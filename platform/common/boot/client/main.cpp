// The quick client of the supplicant: asks what the host's client would ask, and prints the same. It is linked
// statically and has no part of the C++ library, because the host's client spends most of its time on linking
// and starting. A command line that it does not know, and a supplicant that it cannot reach, it leaves to the
// host's client, which finds the words for what is wrong.

#include "Connection.h"
#include "HostClient.h"
#include "Request.h"
#include "Termination.h"
#include "common/boot/Output.h"

#include <string.h>

namespace {

constexpr int NOT_ASKED = 255;

// Tells this program from the host's client, which has no such option.
bool asksForVersion(const client::Arguments& arguments) {
    return arguments.count() == 2 && strcmp(arguments.get()[1], "--version") == 0;
}

int printVersion() {
    boot::output.add("platwifi quick client " PLATWIFI_VERSION "\n");
    return boot::output.flush() ? 0 : 1;
}

int leaveToHost(const client::Arguments& arguments, const char* reason) {
    client::runHostClient(arguments);
    boot::complain("wpa_cli: ");
    boot::complain(reason);
    boot::complain("; the host's own wpa_cli knows more: install it (Debian: wpasupplicant)\n");
    return NOT_ASKED;
}

int answer(const client::Arguments& arguments, const client::Request& request) {
    client::delayTermination();
    const client::Connection connection(request.iface());
    if (!connection.isOpen())
        return leaveToHost(arguments, "cannot connect to wpa_supplicant");
    const int status = connection.ask(request);
    boot::output.flush();
    return status;
}

} // namespace

int main(int count, char* originals[]) {
    const client::Arguments arguments(count, originals);
    if (asksForVersion(arguments))
        return printVersion();
    client::Request request;
    if (!request.read(arguments))
        return leaveToHost(arguments, "this command is not known");
    return answer(arguments, request);
}
