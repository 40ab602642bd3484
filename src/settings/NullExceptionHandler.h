#pragma once

#include "platform/ErrorHandler.h"

/// An error handler that raises nothing and only saves the error: for work that no caller has asked
/// for.
class NullExceptionHandler : public virtual ErrorHandler {
public:
    using ErrorHandler::error;

    // Before the destructor: the order of the virtual operations is part of the binary interface.
    void error(MessageBundle* bundle) override { saveError(bundle); }
    ~NullExceptionHandler() override = default;
};
