#ifndef COMMAND_CONSOLE_H
#define COMMAND_CONSOLE_H

#include <cstddef>

namespace command
{

/// Whether errors go to a terminal that a person looks at.
bool isErrorTerminal();

/// The columns of that terminal; 80 where it does not tell.
std::size_t errorTerminalWidth();

/// From here on SIGINT and SIGTERM (or what the platform has for them) no longer end the process at once, but are
/// noted.
void catchInterrupts();

/// The number of the signal that has come; 0 for none.
int interruption();

/// Ends the process as the signal would have, so that whoever started it can tell.
[[noreturn]] void endBy(int signal);

} // namespace command

#endif
