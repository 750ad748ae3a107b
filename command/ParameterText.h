#ifndef COMMAND_PARAMETERTEXT_H
#define COMMAND_PARAMETERTEXT_H

#include <tessaron/util/Parameterized.h>

#include <string>

namespace command
{

/// The value that a person means by a text: a whole number, a number with a point, or the text itself. The locale plays
/// no part.
util::Parameterized::Value parameterValue(const std::string& text);

} // namespace command

#endif
