#pragma once

/// Marks what a support library offers to others; everything else is built hidden.
#define PLATFORM_API __attribute__((visibility("default")))
