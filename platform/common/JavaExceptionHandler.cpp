#include "platform/JavaExceptionHandler.h"

#include "platform/JavaText.h"

namespace {

constexpr const char* EXCEPTION_CLASS = "java/lang/RuntimeException";

bool raise(JNIEnv* environment, const char* text) {
    const std::string message = platform::toModifiedUtf8(text);
    const jclass type = environment->FindClass(EXCEPTION_CLASS);
    if (!type)
        return false; // FindClass() has made an exception pending
    const bool raised = environment->ThrowNew(type, message.c_str()) == JNI_OK;
    environment->DeleteLocalRef(type);
    return raised;
}

} // namespace

JavaExceptionHandler::JavaExceptionHandler(JNIEnv* environment) : m_environment(environment) {}

JavaExceptionHandler::~JavaExceptionHandler() = default;

void JavaExceptionHandler::error(MessageBundle* bundle) {
    if (!bundle)
        return;
    saveError(bundle);
    if (m_environment && !m_environment->ExceptionCheck())
        m_raised = raise(m_environment, bundle->text());
}

void JavaExceptionHandler::clearError() {
    ErrorHandler::clearError();
    if (m_raised)
        m_environment->ExceptionClear();
    m_raised = false;
}
