#include "supplicant/Arguments.h"

#include "Profile.h"

#include <cstdio>
#include <cstring>

namespace platwifi {

ArgumentList::ArgumentList(std::initializer_list<const char*> entries) noexcept {
    for (const char* entry : entries)
        add(entry);
}

ArgumentList& ArgumentList::add(const char* entry) noexcept {
    if (!entry)
        return *this;
    if (m_count < CAPACITY)
        m_entries[m_count] = entry;
    ++m_count;
    return *this;
}

ArgumentList& ArgumentList::add(const ArgumentList& more) noexcept {
    for (const char* const* entry = more.get(); *entry; ++entry)
        add(*entry);
    m_count += more.isComplete() ? 0 : CAPACITY;
    return *this;
}

ArgumentList argumentsOf(const char* path, const char* interfaceArg, const char* command,
                         const char* arg1, const char* arg2, const char* arg3) noexcept {
    ArgumentList arguments{path, interfaceArg, command};
    if (command && arg1)
        arguments.add(arg1).add(arg2).add(arg3);
    return arguments;
}

InterfaceOption::InterfaceOption(const char* iface) noexcept {
    static_assert(rule::LONGEST_INTERFACE.modern <= MOST_CHARACTERS);
    if (iface && std::strlen(iface) <= rule::LONGEST_INTERFACE())
        std::snprintf(m_text, sizeof(m_text), "-i%s", iface);
}

NetworkIdArgument::NetworkIdArgument(unsigned char id) noexcept {
    std::snprintf(m_text, sizeof(m_text), "%hu", static_cast<unsigned short>(id));
}

bool isClientOption(const char* text) noexcept {
    const char second = text[0] == '-' ? text[1] : '\0';
    return second != '\0' && (second < '0' || second > '9');
}

} // namespace platwifi
