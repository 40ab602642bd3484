#include "commands/EventReport.h"

#include "display/Text.h"
#include "display/Wrap.h"
#include "host/Ssid.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace cli {
namespace {

constexpr unsigned int TIME_COLUMN = 10;    // width of the time
constexpr unsigned int DETAILS_COLUMN = 34; // where details begin
constexpr unsigned int MIN_DETAILS = 20;    // on a console with less room they begin below the kind
constexpr unsigned int INDENTATION = 2;     // there

struct KindStyle {
    const char* name;  // in JSON
    const char* label; // in text
    const char* code;  // what the code of such an event is called
    const char* (Console::*colour)() const;
};

// In the order of Event::Kind.
constexpr KindStyle KIND_STYLES[] = {
    {"authenticating", "authenticating", "", &Console::plain},
    {"associating", "associating", "", &Console::plain},
    {"connected", "connected", "", &Console::green},
    {"roaming", "roaming", "", &Console::plain},
    {"roamed", "roamed", "", &Console::green},
    {"disconnected", "disconnected", "reason", &Console::red},
    {"wrongKey", "wrong key", "status", &Console::red},
    {"authenticationRefused", "authentication refused", "status", &Console::red},
    {"associationRefused", "association refused", "status", &Console::red},
    {"timedOut", "no answer", "status", &Console::red},
    {"suspended", "network suspended", "", &Console::yellow},
    {"resumed", "network resumed", "", &Console::plain},
    {"eapStarted", "EAP started", "", &Console::plain},
    {"eapMethodProposed", "EAP method proposed", "method", &Console::plain},
    {"eapMethodRefused", "EAP method refused", "method", &Console::yellow},
    {"eapMethodChosen", "EAP method chosen", "method", &Console::plain},
    {"eapMethodUnusable", "EAP method unusable", "method", &Console::red},
    {"certificateShown", "certificate", "", &Console::plain},
    {"certificateRejected", "certificate rejected", "error", &Console::red},
    {"loginRefused", "login refused", "error", &Console::red},
    {"credentialNeeded", "credential needed", "", &Console::yellow},
    {"eapStatus", "EAP status", "", &Console::plain},
    {"eapSucceeded", "EAP succeeded", "", &Console::plain},
    {"eapFailed", "EAP failed", "", &Console::red},
    {"networkNotFound", "network not found", "", &Console::yellow},
    {"accessPointLost", "access point lost", "", &Console::red},
    {"accessPointFound", "access point found", "", &Console::plain},
    {"accessPointGone", "access point gone", "", &Console::plain},
    {"scanStarted", "scan started", "", &Console::plain},
    {"scanFinished", "scan finished", "", &Console::plain},
    {"scanFailed", "scan failed", "error", &Console::yellow},
    {"signalChanged", "signal changed", "", &Console::plain},
    {"channelChanged", "channel changed", "", &Console::plain},
    {"regulatoryChanged", "regulatory domain", "", &Console::plain},
    {"supplicantEnds", "supplicant ends", "", &Console::red},
    {"supplicantLost", "supplicant lost", "", &Console::red},
    {"other", "other", "", &Console::plain},
};
static_assert(std::size(KIND_STYLES) == static_cast<std::size_t>(Event::Kind::OTHER) + 1);

const KindStyle& styleOf(Event::Kind kind) {
    return KIND_STYLES[static_cast<std::size_t>(kind)];
}

/// The parts of a line, joined by commas.
class Details {
public:
    void add(const std::string& part) {
        if (!part.empty())
            m_text += (m_text.empty() ? "" : ", ") + part;
    }

    /// Adds nothing if the number is missing.
    void add(const char* before, std::optional<int> number, const char* after) {
        if (number)
            add(before + std::to_string(*number) + after);
    }

    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

std::string codeOf(const Event& event) {
    const char* const name = styleOf(event.kind).code;
    if (!event.code || name[0] == '\0')
        return event.meaning;
    const std::string code = name + (" " + std::to_string(*event.code));
    return event.meaning.empty() ? code : code + ": " + event.meaning;
}

std::string sideOf(const Event& event) {
    if (!event.isLocal)
        return "";
    return *event.isLocal ? "by this host" : "by the access point";
}

std::string failuresOf(const Event& event) {
    return event.failures == 1 ? "1 failure" : std::to_string(*event.failures) + " failures";
}

std::string detailsOf(const Event& event) {
    Details details;
    if (!event.ssid.empty())
        details.add(shownSsid(event.ssid));
    else
        details.add("network ", event.network, "");
    details.add(event.bssid);
    if (!event.previousBssid.empty())
        details.add("from " + event.previousBssid);
    details.add("", event.frequency, " MHz");
    details.add("", event.signal, " dBm");
    details.add(sideOf(event));
    details.add(printable(event.certificate));
    details.add(printable(codeOf(event)));
    if (event.failures)
        details.add(failuresOf(event));
    details.add("not tried for ", event.seconds, " s");
    details.add(printable(event.text));
    return details.text();
}

std::string timeText(std::time_t time, const char* format,
                     std::tm* (*convert)(const std::time_t*, std::tm*)) {
    std::tm parts{};
    char text[32];
    convert(&time, &parts);
    return {text, std::strftime(text, sizeof text, format, &parts)};
}

// The time and the kind, which come before the details.
std::string head(const Event& event, std::time_t time, const Console& console) {
    const KindStyle& style = styleOf(event.kind);
    const std::string clock = padded(timeText(time, "%H:%M:%S", localtime_r), TIME_COLUMN);
    const unsigned int rest = console.width - std::min(console.width, TIME_COLUMN);
    return cutTo(clock, console.width) + (console.*style.colour)() + cutTo(style.label, rest) +
           console.plain();
}

// Where details begin below the kind: a character takes up to two cells.
unsigned int narrowColumn(unsigned int width) {
    return width >= INDENTATION + 2 ? INDENTATION : 0;
}

void add(Record& record, const char* name, const std::string& text) {
    if (!text.empty())
        record.emplace_back(name, text);
}

template <typename T>
void add(Record& record, const char* name, const std::optional<T>& value) {
    if (value)
        record.emplace_back(name, *value);
}

} // namespace

const char* nameOf(Event::Kind kind) {
    return styleOf(kind).name;
}

std::string reportOf(const Event& event, std::time_t time, const Console& console) {
    const std::string details = detailsOf(event);
    std::string report = head(event, time, console);
    if (details.empty())
        return report + '\n';
    const bool isNarrow = console.width < DETAILS_COLUMN + MIN_DETAILS;
    const unsigned int column = isNarrow ? narrowColumn(console.width) : DETAILS_COLUMN;
    const std::string indentation(column, ' ');
    const unsigned int taken = TIME_COLUMN + cellsOf(styleOf(event.kind).label);
    std::string gap = isNarrow ? '\n' + indentation : std::string(DETAILS_COLUMN - taken, ' ');
    for (const std::string& line : wrapped(details, console.width - column)) {
        report += gap + line + '\n';
        gap = indentation;
    }
    return report;
}

Record recordOf(const Event& event, std::time_t time) {
    Record record{{"time", timeText(time, "%Y-%m-%dT%H:%M:%SZ", gmtime_r)},
                  {"event", std::string(nameOf(event.kind))}};
    add(record, "ssid", event.ssid.empty() ? "" : plainSsid(event.ssid));
    add(record, "network", event.network);
    add(record, "bssid", event.bssid);
    add(record, "previousBssid", event.previousBssid);
    add(record, "frequency", event.frequency);
    add(record, "signal", event.signal);
    add(record, "code", event.code);
    add(record, "meaning", event.meaning);
    add(record, "local", event.isLocal);
    add(record, "failures", event.failures);
    add(record, "seconds", event.seconds);
    add(record, "depth", event.depth);
    add(record, "certificate", event.certificate);
    add(record, "text", event.text);
    return record;
}

} // namespace cli
