#ifndef COMMAND_OPTIONS_H
#define COMMAND_OPTIONS_H

#include "command/OutputFile.h"
#include <tessaron/gcode/GcodeSettings.h>
#include <tessaron/util/Parameterized.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// The command tessaron-job: computes the toolpaths of parts without windows.
namespace command
{

/// A command line that cannot be followed; what() tells why.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// What the command line asks for.
struct Options
{
    bool help = false;
    bool version = false;
    bool quiet = false;
    bool verbose = false;
    std::vector<std::string> files;
    OutputChoice output;
    /// How many files are worked on at a time.
    int jobs = 1;
    /// Threads for each file; 0 when it is not given.
    int threads = 0;
    /// A template whose parameters are taken; empty for none.
    std::string templateFile;
    /// Parameters in place of those of archives and template.
    util::Parameterized set;
    exchange::GcodeSettings gcode;
    /// Whether the tool is set, rather than taken from the archive.
    bool gcodeToolSet = false;
    bool gcodeTitleSet = false;
};

/// Reads a command line.
/// \throws UsageError
Options readOptions(int argc, const char* const* argv);

/// What --help prints.
std::string helpText();

} // namespace command

#endif
