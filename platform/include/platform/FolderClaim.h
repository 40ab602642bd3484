#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

#include <cstdint>

namespace platform {

/// Tells other processes that a number of a folder is in use. A claim excludes no other one and waits for
/// none; it ends with the object, and with the process however that ends.
///
/// Any user who may read the folder can claim numbers in it and look for claims. An object belongs to
/// one thread at a time. Nothing throws.
class PLATFORM_API FolderClaim {
public:
    static constexpr std::uint32_t MAX_NUMBER = 0x7ffffffe;

    /// Claims a number. Where the system cannot do that, there is no claim.
    /// @param folder  a folder that this process may read
    /// @param number  MAX_NUMBER at most
    FolderClaim(const char* folder, std::uint32_t number) noexcept;

    FolderClaim(const FolderClaim&) = delete;
    FolderClaim& operator=(const FolderClaim&) = delete;

    /// Whether the claim stands.
    bool isHeld() const noexcept { return m_folder.isOpen(); }

    /// Whether a claim on `number` stands in the folder beside this object's own, be it of this process
    /// or another. Without a claim of its own an object knows of none.
    bool sees(std::uint32_t number) const noexcept;

private:
    FileDescriptor m_folder; ///< open as long as the claim stands
};

} // namespace platform
