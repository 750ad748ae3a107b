#ifndef COMMAND_OUTPUTFILE_H
#define COMMAND_OUTPUTFILE_H

#include <optional>
#include <string>
#include <vector>

namespace command
{

enum class Format
{
    gcode,
    xml
};

/// The format of a name, as --format takes it.
/// \throws UsageError
Format formatNamed(const std::string& name);

/// The format that the ending of a file's name stands for, if it stands for one.
std::optional<Format> formatOfFile(const std::string& path);

/// Where toolpaths go.
struct OutputChoice
{
    /// A file or folder; empty for a file beside each part.
    std::string path;
    bool isFolder = false;
    std::optional<Format> format;
};

/// A part and the file of its toolpath.
struct Task
{
    std::string input;
    std::string output;
    Format format = Format::gcode;
};

/// The tasks of the parts, in their order. Makes the folder of the outputs when it is missing.
/// \throws UsageError when two parts have one output, or an output is one of the parts
std::vector<Task> tasksOf(const std::vector<std::string>& files, const OutputChoice& choice);

} // namespace command

#endif
