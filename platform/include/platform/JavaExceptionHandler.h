#pragma once

#include "platform/ErrorHandler.h"

#include <jni.h>

/// Raises reported errors as Java exceptions in one thread's environment.
class PLATFORM_API JavaExceptionHandler : public virtual ErrorHandler {
public:
    /// @param environment  of the calling thread; null makes the handler save errors only
    explicit JavaExceptionHandler(JNIEnv* environment);
    ~JavaExceptionHandler() override;

    using ErrorHandler::error;

    /// Saves the error and makes a java.lang.RuntimeException with its text pending. Where an
    /// exception is pending already, that one stays: the first cause is the one to see.
    void error(MessageBundle* bundle) override;

    /// Forgets the saved error and takes back the exception that this handler made pending.
    void clearError() override;

private:
    JNIEnv* m_environment;
    bool m_raised = false;
};
