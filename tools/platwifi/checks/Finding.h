#pragma once

#include <string>
#include <utility>

namespace cli {

enum class Health {
    GOOD,
    NOTE, ///< Wi-Fi works, but the user should know
    BAD
};

/// The result of a check. The texts hold no secrets. They may hold any bytes that a file name can.
struct Finding {
    std::string subject; ///< such as "control socket"
    Health health = Health::GOOD;
    std::string found;
    std::string toDo; ///< empty if there is nothing to do
};

// The findings of a single check. examine() and obstacle() fill in the subject.

inline Finding good(std::string found) {
    return {"", Health::GOOD, std::move(found), ""};
}
inline Finding note(std::string found, std::string toDo) {
    return {"", Health::NOTE, std::move(found), std::move(toDo)};
}
inline Finding bad(std::string found, std::string toDo) {
    return {"", Health::BAD, std::move(found), std::move(toDo)};
}

} // namespace cli
