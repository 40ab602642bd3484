#pragma once

#include "platform/ErrorHandler.h"

#include <jni.h>

/// Raises reported errors as Java exceptions in one thread's environment.
class PLATFORM_API JavaExceptionHandler : public virtual ErrorHandler {
public:
    /// @param environment  of the calling thread; with null the handler only saves errors
    explicit JavaExceptionHandler(JNIEnv* environment);
    ~JavaExceptionHandler() override;

    using ErrorHandler::error;

    /// Saves the error and makes a java.lang.RuntimeException with its text pending. An exception
    /// that is already pending stays, so that the caller sees the first cause.
    void error(MessageBundle* bundle) override;

    /// Removes the saved error and clears the exception that this handler made pending.
    void clearError() override;

private:
    JNIEnv* m_environment;
    bool m_raised = false;
};
