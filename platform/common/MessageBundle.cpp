#include "platform/MessageBundle.h"

MessageBundle::MessageBundle(const char* id, const char* text)
    : m_id(id ? id : ""), m_text(text ? text : "") {}
