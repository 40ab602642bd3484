#include "platform/ErrorHandler.h"

ErrorHandler::ErrorHandler() = default;

ErrorHandler::~ErrorHandler() = default;

void ErrorHandler::error(MessageBundle* bundle) {
    saveError(bundle);
}

void ErrorHandler::error(const char* text) {
    MessageBundle bundle("", text);
    error(&bundle);
}

void ErrorHandler::clearError() {
    m_saved.reset();
}

void ErrorHandler::saveError(MessageBundle* bundle) {
    if (bundle)
        m_saved = std::make_unique<MessageBundle>(*bundle);
}
