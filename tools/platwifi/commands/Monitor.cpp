// The events of an interface, as they come.

#include "commands/Commands.h"
#include "commands/EventReport.h"
#include "display/Json.h"
#include "display/Text.h"
#include "events/EventSource.h"
#include "host/Host.h"
#include "process/StandardStreams.h"

#include <ctime>
#include <iostream>

namespace cli {
namespace {

// How often to look whether the reader of the output has gone, which no wait for events notices.
constexpr std::chrono::milliseconds READER_PERIOD{1000};

// On a terminal nothing else shows that the command has begun.
void announce(const Context& context, const std::string& iface) {
    if (context.out.isTerminal && context.err.isTerminal && !context.request.json)
        std::cerr << "Waiting for events of " << printable(iface) << "; Ctrl-C ends this.\n";
}

void show(const Event& event, const Context& context) {
    const std::time_t now = std::time(nullptr);
    if (context.request.json)
        printJsonLine(recordOf(event, now));
    else
        std::cout << reportOf(event, now,
                              Console::of(1)); // the terminal may have another width now
    flushOutput();
}

void requireSupplicant(const Event& event, const std::string& iface) {
    if (event.kind != Event::Kind::TERMINATING && event.kind != Event::Kind::LOST)
        return;
    throw Failure("the supplicant no longer serves " + iface +
                  "; start it again, then platwifi monitor");
}

[[noreturn]] void watch(EventSource& events, const Context& context, const std::string& iface) {
    for (;;) {
        if (const auto event = events.next(EventSource::Clock::now() + READER_PERIOD)) {
            show(*event, context);
            requireSupplicant(*event, iface);
        }
        if (hasReaderClosed())
            throw Failure("");
    }
}

} // namespace

void monitor(Context& context) {
    Host host(context);
    const std::string iface = host.iface();
    EventSource events(iface, context.interrupt);
    announce(context, iface);
    try {
        watch(events, context, iface);
    } catch (const Interrupted&) {
        if (context.out.isTerminal)
            std::cout << '\n'; // the message begins behind the "^C" otherwise
        throw;
    }
}

} // namespace cli
