#pragma once

#include "platform/Export.h"
#include "platform/MessageBundle.h"

#include <memory>

/// Receives the errors that an operation reports. The order of the virtual functions is part of the
/// binary interface: both destructors, then the four operations in the order below.
///
/// A handler belongs to one thread at a time; it takes no lock.
class PLATFORM_API ErrorHandler {
public:
    ErrorHandler();
    virtual ~ErrorHandler();

    ErrorHandler(const ErrorHandler&) = delete;
    ErrorHandler& operator=(const ErrorHandler&) = delete;

    /// Reports an error. This class saves a copy; derived classes may do more. The caller keeps the
    /// bundle. Null is ignored.
    virtual void error(MessageBundle* bundle);

    /// Reports an error that has only a text, as a bundle with an empty id.
    virtual void error(const char* text);

    /// Removes the saved error.
    virtual void clearError();

    /// Saves a copy of the bundle in place of an earlier one. Null is ignored.
    virtual void saveError(MessageBundle* bundle);

    /// The error saved last, or null; valid until the next call that saves or removes one.
    const MessageBundle* savedError() const noexcept { return m_saved.get(); }

private:
    std::unique_ptr<MessageBundle> m_saved;
};
