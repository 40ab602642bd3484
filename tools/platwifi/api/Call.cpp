#include "api/Call.h"

#include "connection/Connecting.h"
#include "host/Ssid.h"
#include "platform/JavaText.h"

namespace cli::api {
namespace {

constexpr const char* EXCEPTION = "com/quorvel/platwifi/api/WifiException";
constexpr const char* CANCELLED = "java/util/concurrent/CancellationException";

// The methods of Network.Builder for what a network may need.
struct Way {
    const char* property;
    const char* method;
};

constexpr Way WAYS[] = {
    {"psk", "passphrase()"},
    {"key1", "wepKey()"},
    {"eap", "eap()"},
    {"eapIdentity", "identity()"},
    {"eapPassword", "password()"},
    {"clientCertificate", "clientCertificate()"},
    {"privateKeyFile", "clientCertificate()"},
    {"CACertificateFile", "caCertificate()"},
};

bool isIndex(const std::string& text) {
    return !text.empty() && text.size() < 4 &&
           text.find_first_not_of("0123456789") == std::string::npos;
}

void raiseCancelled(JNIEnv* env) {
    if (jclass const type = env->FindClass(CANCELLED))
        env->ThrowNew(type, "the operation was cancelled");
}

} // namespace

void raise(JNIEnv* env, const char* reason, const std::string& ssid, const std::string& message) {
    if (env->ExceptionCheck())
        return;
    jclass const type = env->FindClass(EXCEPTION);
    jmethodID const make =
        type ? env->GetStaticMethodID(type, "ofNative",
                                      "(Ljava/lang/String;Ljava/lang/String;Ljava/lang/String;)"
                                      "Lcom/quorvel/platwifi/api/WifiException;")
             : nullptr;
    if (!make)
        return;
    jstring const word = platform::newJavaString(env, reason);
    jstring const name = platform::newJavaString(env, ssid.c_str());
    jstring const text = platform::newJavaString(env, message.c_str());
    if (env->ExceptionCheck())
        return;
    jobject const exception = env->CallStaticObjectMethod(type, make, word, name, text);
    if (!env->ExceptionCheck())
        env->Throw(static_cast<jthrowable>(exception));
}

void raiseCurrent(JNIEnv* env) {
    try {
        throw;
    } catch (const PendingException&) {
        return;
    } catch (const ConnectionFailure& failure) {
        const std::string ssid = failure.ssid.empty() ? "" : shownSsid(failure.ssid);
        raise(env, entryOf(failure.cause).word, ssid, failure.found);
    } catch (const Failure& failure) {
        raise(env, "failed", "", failure.what());
    } catch (const WrongUse& error) {
        raise(env, "wrongUse", "", error.what());
    } catch (const Interrupted&) {
        raiseCancelled(env);
    } catch (const std::exception& error) {
        raise(env, "failed", "", std::string("something went wrong: ") + error.what());
    }
}

std::string GivenSecrets::answerTo(const std::string& name) const {
    throw WrongUse("the network needs " + name + "; set it");
}

std::string GivenSecrets::wayToGive(const std::string& name, const std::string& /*example*/) const {
    for (const Way& way : WAYS) {
        if (name == way.property)
            return std::string(way.method) + " of Network.Builder";
    }
    return name;
}

std::string GivenSecrets::secretOf(const std::string& name, const std::string& source) const {
    if (!isIndex(source) || std::stoul(source) >= m_secrets.size())
        throw WrongUse(name + " is a secret; give it as a Passphrase: " + wayToGive(name, ""));
    return m_secrets.at(std::stoul(source));
}

} // namespace cli::api
