#pragma once

#include "model/WifiNetwork.h"
#include "platform/JNIString.h"
#include "platform/JavaExceptionHandler.h"
#include "platform/JavaText.h"
#include "settings/WifiHostSettings.h"

#include <jni.h>

/// Opens the definition of a native method of the Java class.
#define PLATWIFI_NATIVE(Result, method)                                                            \
    extern "C" JNIEXPORT Result JNICALL Java_com_quorvel_platwifi_BWifiPlatformService_##method

namespace platwifi {

// A native makes one of these objects on its stack. The parts of the object are made in the order in which
// they stand here and released in reverse, also when an exception passes through.

/// The error handler of a native call, and the characters of its Java strings.
class NativeCall {
public:
    /// @param iface  null gives a null text, here and in the other parameters
    explicit NativeCall(JNIEnv* env, jstring iface = nullptr, jstring ssid = nullptr,
                        jstring value = nullptr)
        : m_env(env), m_errors(env), m_iface(env, iface), m_ssid(env, ssid), m_value(env, value) {}

    NativeCall(const NativeCall&) = delete;
    NativeCall& operator=(const NativeCall&) = delete;

    /// An error that is reported here is a pending exception when the native returns to Java.
    ErrorHandler* errors() noexcept { return &m_errors; }

    /// A new Java string (local reference) of any bytes. Null for null, where an error was reported, and when
    /// the virtual machine has no memory for it. The native has made no other call that can throw.
    jstring newString(const char* text) {
        const bool mayCall = text && !m_errors.savedError();
        return mayCall ? platform::newJavaStringUnchecked(m_env, text) : nullptr;
    }

    /// The settings, loaded if necessary.
    WifiHostSettings& settings() noexcept { return *WifiHostSettings::getInstance(&m_errors); }

    const char* iface() const noexcept { return m_iface.text(); }
    const char* ssid() const noexcept { return m_ssid.text(); }
    const char* value() const noexcept { return m_value.text(); }

private:
    JNIEnv* const m_env;
    JavaExceptionHandler m_errors;
    platform::StringArgument m_iface;
    platform::StringArgument m_ssid;
    platform::StringArgument m_value;
};

/// A native call that holds the lock of the settings. A Java string that the native returns is made
/// before this object ends: after the unlock another thread may free the text.
class SettingsCall : public NativeCall {
public:
    explicit SettingsCall(JNIEnv* env, jstring iface = nullptr, jstring ssid = nullptr,
                          jstring value = nullptr)
        : NativeCall(env, iface, ssid, value), m_settings(NativeCall::settings()),
          m_lock(m_settings) {}

    /// The settings, which the lock keeps loaded.
    WifiHostSettings& settings() noexcept { return m_settings; }

private:
    WifiHostSettings& m_settings;
    SettingsLock m_lock;
};

/// A native call for one network, under the lock of the settings. It is false if there is no such network.
class NetworkCall : public SettingsCall {
public:
    NetworkCall(JNIEnv* env, jstring iface, jstring ssid, jstring value = nullptr)
        : SettingsCall(env, iface, ssid, value),
          m_network(settings().getNetwork(this->iface(), this->ssid())) {}

    explicit operator bool() const noexcept { return m_network != nullptr; }
    WifiNetwork* operator->() const noexcept { return m_network; }
    WifiNetwork& operator*() const noexcept { return *m_network; }

private:
    WifiNetwork* const m_network;
};

} // namespace platwifi
