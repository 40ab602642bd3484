#pragma once

#include "edits/Property.h"

#include <string>
#include <vector>

namespace cli {

/// The value as text; "" if it is not set.
std::string shown(const Property& property, const WifiNetwork& network);

/// All properties, in the order in which they are shown.
const std::vector<Property>& properties();

/// @throws WrongUse for an unknown name
const Property& propertyOf(const std::string& name);

} // namespace cli
