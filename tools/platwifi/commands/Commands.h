#pragma once

namespace cli {

struct Context;

// The commands. Each prints its result to standard output. It throws Failure or WrongUse if it cannot do
// its work, and Interrupted if the user ends it.

void showAdapters(Context& context);
void showStatus(Context& context);
void scan(Context& context);
void monitor(Context& context);
void listNetworks(Context& context);
void showNetwork(Context& context);
void setProperties(Context& context);
void addNetwork(Context& context);
void removeNetwork(Context& context);
void connectNetwork(Context& context);
void disconnectNetwork(Context& context);
void joinNetwork(Context& context);
void forgetNetwork(Context& context);
void roam(Context& context);
void writeXml(Context& context);
void dump(Context& context);
void doctor(Context& context);
void showHelp(Context& context);

} // namespace cli
