#include "platform/FolderClaim.h"

#include <gtest/gtest.h>

namespace {

using platform::FolderClaim;

// The library removes no file then, and waits for no other process.
TEST(FolderClaim, IsNeverHeldNorSeen) {
    const FolderClaim claim("/tmp", 10);
    const FolderClaim other("/tmp", 10);
    EXPECT_FALSE(claim.isHeld());
    EXPECT_FALSE(claim.sees(10));
}

} // namespace
