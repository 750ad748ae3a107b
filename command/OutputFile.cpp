#include "command/OutputFile.h"

#include "command/Options.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace command
{

namespace
{

namespace fs = std::filesystem;

constexpr struct
{
    const char* ending;
    Format format;
} endings[] = {{".xml", Format::xml},     {".ngc", Format::gcode}, {".nc", Format::gcode},
               {".gcode", Format::gcode}, {".tap", Format::gcode}, {".cnc", Format::gcode}};

// A part may be an archive of text itself.
std::string nameFor(const fs::path& part, Format format)
{
    return part.stem().string() + (format == Format::gcode ? ".ngc" : "-toolpath.xml");
}

fs::path canonical(const fs::path& path)
{
    std::error_code error;
    fs::path result = fs::weakly_canonical(path, error);
    return error ? path.lexically_normal() : result;
}

Task taskOf(const std::string& file, const OutputChoice& choice, bool isFolder)
{
    if (choice.path.empty() || isFolder)
    {
        const Format format = choice.format.value_or(Format::gcode);
        const fs::path folder = isFolder ? fs::path(choice.path) : fs::path(file).parent_path();
        return {file, (folder / nameFor(file, format)).string(), format};
    }
    const std::optional<Format> meant = formatOfFile(choice.path);
    if (!choice.format && !meant && fs::path(choice.path).has_extension())
        throw UsageError("The name \"" + choice.path +
                         "\" does not tell the format: use --format, or one of .ngc, .nc, .gcode, .tap, .cnc, .xml.");
    return {file, choice.path, choice.format.value_or(meant.value_or(Format::gcode))};
}

void makeFolder(const std::string& path)
{
    std::error_code error;
    fs::create_directories(path, error);
    if (!fs::is_directory(path))
        throw UsageError("The folder \"" + path + "\" cannot be made.");
}

} // namespace

Format formatNamed(const std::string& name)
{
    if (name == "gcode")
        return Format::gcode;
    if (name == "xml")
        return Format::xml;
    if (name == "binary")
        throw UsageError("Toolpaths have no binary archives: --format takes gcode or xml.");
    throw UsageError("--format takes gcode or xml, not \"" + name + "\".");
}

std::optional<Format> formatOfFile(const std::string& path)
{
    const std::string ending = fs::path(path).extension().string();
    for (const auto& known : endings)
        if (ending == known.ending)
            return known.format;
    return std::nullopt;
}

std::vector<Task> tasksOf(const std::vector<std::string>& files, const OutputChoice& choice)
{
    const std::string& path = choice.path;
    const bool isFolder = !path.empty() && (choice.isFolder || path.back() == '/' || fs::is_directory(path));
    if (isFolder)
        makeFolder(path);
    std::map<fs::path, std::string> inputs;
    for (const std::string& file : files)
        inputs.emplace(canonical(file), file);
    std::map<fs::path, std::string> outputs;
    std::vector<Task> tasks;
    for (const std::string& file : files)
    {
        tasks.push_back(taskOf(file, choice, isFolder));
        const fs::path output = canonical(tasks.back().output);
        if (inputs.contains(output))
            throw UsageError("The toolpath of \"" + file + "\" would take the place of the part \"" +
                             inputs.at(output) + "\".");
        if (const auto [other, isNew] = outputs.emplace(output, file); !isNew)
            throw UsageError("\"" + other->second + "\" and \"" + file + "\" would both be written into \"" +
                             tasks.back().output + "\".");
    }
    return tasks;
}

} // namespace command
