#include "settings/NullExceptionHandler.h"

void NullExceptionHandler::error(MessageBundle* bundle) {
    saveError(bundle);
}

NullExceptionHandler::~NullExceptionHandler() = default;
