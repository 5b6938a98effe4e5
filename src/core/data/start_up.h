#pragma once

namespace core {

struct ProgramFolder;
struct Shared;

// The start-up. Refuses a second copy of the program on the same program folder with a message;
// else opens the application database, brings it to today's version and sets the shared state.
// Database steps that fail are skipped without a message. False when the program has to end at
// once; else the splash screen is to be shown.
bool Main(Shared& shared, const ProgramFolder& folder);

} // namespace core
