#pragma once

namespace platwifi {

/// What a line of the status report tells that matters here.
enum class StatusLine { OTHER, SSID, STATE };

/// What a line tells while loading. Access points ("bssid=") and whatever else holds one of the
/// other known keys are passed over.
StatusLine kindOf(const char* line);

/// The text after the first equals sign; empty where there is none.
const char* statusValue(const char* line);

} // namespace platwifi
