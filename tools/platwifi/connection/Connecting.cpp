#include "connection/Connecting.h"

#include "display/StateLine.h"
#include "host/ConnectionWatch.h"
#include "host/Ssid.h"
#include "jni/ServiceFunctions.h"
#include "model/Vocabulary.h"

#include <iomanip>
#include <memory>
#include <sstream>
#include <utility>

namespace cli {
namespace {

std::string messageOf(Cause cause, const std::string& ssid, const std::string& found) {
    const CauseEntry& entry = entryOf(cause);
    return shownSsid(ssid) + " is not connected: " + (found.empty() ? entry.found : found) + "; " +
           entry.step;
}

void watchStates(ConnectionWatch& watch, const Context& context, const std::string& ssid) {
    std::unique_ptr<StateLine> line;
    if (!context.request.json)
        line = std::make_unique<StateLine>(context.out, "Connecting to " + shownSsid(ssid) + ":");
    try {
        watch.run(line.get());
    } catch (Interrupted& end) {
        end.message = "interrupted; the supplicant goes on trying: platwifi disconnect ends that";
        throw;
    }
}

} // namespace

ConnectionFailure::ConnectionFailure(Cause why, std::string network, const std::string& found,
                                     WpaState last)
    : Failure(messageOf(why, network, found), entryOf(why).exitStatus), cause(why),
      ssid(std::move(network)), state(last) {}

std::chrono::steady_clock::duration connectAndWait(Context& context, Host& host,
                                                   const std::string& ssid) {
    if (connectToNetwork(nullptr, host.iface().c_str(), ssid.c_str()) == 0)
        throw Failure("the supplicant did not accept to connect to " + shownSsid(ssid) +
                      "; platwifi doctor tells more");
    ConnectionWatch watch(context, host, ssid);
    watchStates(watch, context, ssid);
    const ConnectionAttempt& attempt = watch.attempt();
    if (attempt.isComplete())
        return watch.elapsed();
    throw ConnectionFailure(attempt.isRefused() ? Cause::WRONG_KEY : Cause::TIMED_OUT, ssid,
                            attempt.likelyCause(), attempt.last());
}

std::string secondsText(std::chrono::steady_clock::duration time) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << std::chrono::duration<double>(time).count();
    return text.str();
}

Record connectedRecord(const std::string& ssid) {
    return {{"ssid", plainSsid(ssid)},
            {"state", std::string(platwifi::stateText(WPA_STATE_COMPLETED))},
            {"cause", std::monostate()}};
}

Record failureRecord(const ConnectionFailure& failure) {
    return {{"ssid", plainSsid(failure.ssid)},
            {"state", std::string(platwifi::stateText(failure.state))},
            {"cause", std::string(entryOf(failure.cause).word)},
            {"message", std::string(failure.what())}};
}

} // namespace cli
