#pragma once

namespace stress {

// The runs of the program stress_runs. Each takes the options of Job, prints its result, and ends the
// program with status 1 if a check fails.

void cycles(char* arguments[]);
void kills(char* arguments[]);
void races(char* arguments[]);
void soak(char* arguments[]);

} // namespace stress
