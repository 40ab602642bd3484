#pragma once

#include "platform/JavaExceptionHandler.h"

/// Owns the error sink of one native call, for as long as the call lasts, however it ends.
class JavaExceptionHandlerWrap {
public:
    /// @param handler  made with new; may be null
    explicit JavaExceptionHandlerWrap(JavaExceptionHandler* handler) noexcept
        : m_handler(handler) {}
    ~JavaExceptionHandlerWrap() { delete m_handler; }

    JavaExceptionHandlerWrap(const JavaExceptionHandlerWrap&) = delete;
    JavaExceptionHandlerWrap& operator=(const JavaExceptionHandlerWrap&) = delete;

    /// What is reported into; null without a handler.
    ErrorHandler* errors() const noexcept { return m_handler; }

private:
    JavaExceptionHandler* m_handler;
};
