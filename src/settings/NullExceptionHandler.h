#pragma once

#include "platform/ErrorHandler.h"

/// An error handler that saves the error and raises nothing, for calls that have no error handler.
class NullExceptionHandler : public virtual ErrorHandler {
public:
    using ErrorHandler::error;

    // Before the destructor: the order of the virtual operations is part of the binary interface.
    void error(MessageBundle* bundle) override { saveError(bundle); }
    ~NullExceptionHandler() override = default;
};
