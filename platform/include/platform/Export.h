#pragma once

/// Marks what a platform library exports; everything else is built hidden.
#define PLATFORM_API __attribute__((visibility("default")))
