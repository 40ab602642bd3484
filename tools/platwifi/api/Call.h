#pragma once

#include "api/JavaValues.h"
#include "api/OtherProcesses.h"
#include "host/Host.h"
#include "process/UserInput.h"

#include <jni.h>
#include <string>

namespace cli::api {

/// Raises a WifiException in Java, unless an exception is pending.
/// @param reason  its reason: a word of Cause.h, or "failed" or "wrongUse"
/// @param ssid    the network that the failure is about, for the message; may be ""
void raise(JNIEnv* env, const char* reason, const std::string& ssid, const std::string& message);

/// To be called in a catch block: raises the exception in Java that stands for the current one.
void raiseCurrent(JNIEnv* env);

/// The secrets of a call. Their assignments have their index as value.
class GivenSecrets : public UserInput {
public:
    explicit GivenSecrets(const Secrets& secrets) : m_secrets(secrets) {}

    bool canAsk() const override { return false; }
    std::string answerTo(const std::string& name) const override;

    /// The method of the builder.
    std::string wayToGive(const std::string& name, const std::string& example) const override;

    /// @throws WrongUse  for a secret that is a value itself
    std::string secretOf(const std::string& name, const std::string& source) const override;

private:
    const Secrets& m_secrets;
};

/// Runs the body of a native. What it throws becomes an exception in Java, and the result is 0 or null then.
template <typename Body>
auto guarded(JNIEnv* env, Body body) noexcept -> decltype(body()) {
    try {
        return body();
    } catch (...) {
        raiseCurrent(env);
        return decltype(body())();
    }
}

/// Runs an operation in its context, and notifies other processes if it has saved.
template <typename Operation>
auto perform(const Request& request, Cancellation& cancellation, const Secrets& secrets,
             Operation operation) {
    const GivenSecrets input(secrets);
    Context context{request, cancellation, input, Console(), Console()};
    context.isWholeProcess = false;
    struct Notice {
        const Context& context;
        ~Notice() {
            if (context.hasSaved)
                notifyOtherProcesses();
        }
    } const notice{context};
    return operation(context);
}

} // namespace cli::api
