#ifndef TESTS_GCODE_TOOLPATHCHECK_H
#define TESTS_GCODE_TOOLPATHCHECK_H

#include "tests/gcode/Interpreter.h"
#include <tessaron/exchange/ToolpathRecords.h>

namespace testing_support
{

/// Compares what a control does with a program with the records that it was written from: every move of the records is
/// there, of its kind, within the tolerance along its whole way, with its feed rate and spindle speed, and nothing else
/// is. Fails the test with the index of the first record that differs.
/// \param spindle 1 when the program's spindle turns clockwise, -1 when the other way round
void expectSameToolpath(const exchange::ToolpathRecords& records, const rs274::Program& program, double tolerance,
                        int spindle = 1);

} // namespace testing_support

#endif
