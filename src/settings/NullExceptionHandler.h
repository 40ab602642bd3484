#pragma once

#include "platform/ErrorHandler.h"

/// A sink that raises nothing: an error is only saved. For work that is done on nobody's call.
class NullExceptionHandler : public virtual ErrorHandler {
public:
    using ErrorHandler::error;

    // Before the destructor: the order of the virtual operations is part of the binary interface.
    void error(MessageBundle* bundle) override;
    ~NullExceptionHandler() override;
};
