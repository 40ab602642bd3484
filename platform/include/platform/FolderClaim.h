#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

#include <cstdint>

namespace platform {

/// A claim on a number of a folder: a mark that the number is in use, visible to other processes.
/// Claims on the same number do not exclude each other. A claim ends with the object, and with the
/// process however that ends.
///
/// Any user who may read the folder can claim numbers in it and look for claims. A system may show a user only the
/// claims of this user's own processes. An object belongs
/// to one thread at a time. Nothing throws and nothing waits.
class PLATFORM_API FolderClaim {
public:
    static constexpr std::uint32_t MAX_NUMBER = 0x7ffffffe;

    /// Claims a number. There is no claim on a system that has no such claims.
    /// @param folder  a folder that this process may read
    /// @param number  MAX_NUMBER at most
    FolderClaim(const char* folder, std::uint32_t number) noexcept;
    ~FolderClaim();

    FolderClaim(const FolderClaim&) = delete;
    FolderClaim& operator=(const FolderClaim&) = delete;

    /// Whether there is a claim.
    bool isHeld() const noexcept { return m_folder.isOpen(); }

    /// Whether any other object, of this process or another, has a claim on `number` of the folder.
    /// False when this object has no claim.
    bool sees(std::uint32_t number) const noexcept;

private:
    FileDescriptor m_folder; ///< open as long as there is a claim
    [[maybe_unused]] std::uint32_t m_number;
};

} // namespace platform
