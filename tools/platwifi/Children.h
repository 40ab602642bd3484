#pragma once

namespace cli {

/// Ends all children of this process and waits until they are gone.
void endChildren();

} // namespace cli
