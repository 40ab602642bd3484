#pragma once

#include "platform/Export.h"
#include "platform/MessageBundle.h"

#include <memory>

/// The sink that errors are reported into. The order of the virtual operations is part of the
/// binary interface: both destructors, then the four operations as they stand.
///
/// A handler belongs to one thread at a time; it takes no lock.
class PLATFORM_API ErrorHandler {
public:
    ErrorHandler();
    virtual ~ErrorHandler();

    ErrorHandler(const ErrorHandler&) = delete;
    ErrorHandler& operator=(const ErrorHandler&) = delete;

    /// Reports an error. Here it is only saved. The bundle stays the caller's; null is ignored.
    virtual void error(MessageBundle* bundle);

    /// Reports an error that has only a text: makes a bundle of it, without an
    /// id, and reports that.
    virtual void error(const char* text);

    /// Forgets what was saved.
    virtual void clearError();

    /// Keeps a copy of the bundle, in place of an earlier one. Null is ignored.
    virtual void saveError(MessageBundle* bundle);

    /// The error saved last, or null; valid until the next call that saves or forgets.
    const MessageBundle* savedError() const noexcept { return m_saved.get(); }

private:
    std::unique_ptr<MessageBundle> m_saved;
};
