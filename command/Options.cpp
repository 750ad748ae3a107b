#include "command/Options.h"

#include "command/ParameterText.h"
#include <tessaron/gcode/GcodeWriter.h>

#include <boost/program_options.hpp>

#include <algorithm>
#include <sstream>

namespace command
{

namespace
{

namespace po = boost::program_options;
typedef std::vector<std::string> Texts;

constexpr int mostJobs = 256;
constexpr unsigned lineLength = 100;

po::options_description visibleOptions()
{
    po::options_description options("Options", lineLength, lineLength / 2);
    options.add_options()("output,o", po::value<std::string>()->value_name("PATH"),
                          "the file to write; for several parts, or with a / at the end, the folder")(
        "format,f", po::value<std::string>()->value_name("FORMAT"),
        "gcode or xml (a toolpath archive); by default what the name of the output says, else gcode")(
        "jobs,j", po::value<int>()->value_name("N"), "how many parts are worked on at a time; by default 1")(
        "threads,t", po::value<int>()->value_name("N"),
        "threads for each part; by default the processors, shared among the parts")(
        "template", po::value<std::string>()->value_name("FILE"),
        "takes the parameters of an operation template, but for the tool's")(
        "set,s", po::value<Texts>()->value_name("KEY=VALUE"), "sets a parameter of the job; may be repeated")(
        "gcode,g", po::value<Texts>()->value_name("NAME=VALUE"),
        "a setting of the program; may be repeated")("quiet,q", "shows neither progress nor warnings")(
        "verbose,v", "tells what was written")("help,h", "shows this text")("version", "shows the version");
    return options;
}

std::pair<std::string, std::string> splitAtEqual(const std::string& text, const char* option)
{
    const std::size_t at = text.find('=');
    if (at == std::string::npos || at == 0)
        throw UsageError(std::string("--") + option + " \"" + text + "\" should be a name, = and a value.");
    return {text.substr(0, at), text.substr(at + 1)};
}

int numberIn(const po::variables_map& values, const char* option, int most, int otherwise)
{
    if (!values.count(option))
        return otherwise;
    const int number = values[option].as<int>();
    if (number < 1 || number > most)
        throw UsageError(std::string("--") + option + " takes a number from 1 to " + std::to_string(most) + ".");
    return number;
}

std::string textIn(const po::variables_map& values, const char* option)
{
    return values.count(option) ? values[option].as<std::string>() : std::string();
}

Texts textsIn(const po::variables_map& values, const char* option)
{
    return values.count(option) ? values[option].as<Texts>() : Texts();
}

po::variables_map parse(int argc, const char* const* argv)
{
    po::options_description all = visibleOptions();
    all.add_options()("file", po::value<Texts>());
    po::positional_options_description files;
    files.add("file", -1);
    // No abbreviations: what a script says today must mean the same with the options of tomorrow.
    namespace style = po::command_line_style;
    const int plain = style::unix_style & ~style::allow_guessing;
    po::variables_map values;
    try
    {
        po::store(po::command_line_parser(argc, argv).options(all).positional(files).style(plain).run(), values);
    }
    catch (const po::error& error)
    {
        throw UsageError(std::string(error.what()) + ".");
    }
    return values;
}

void readGcode(const Texts& texts, Options& options)
{
    for (const std::string& text : texts)
    {
        const auto [name, value] = splitAtEqual(text, "gcode");
        try
        {
            exchange::setGcodeSetting(options.gcode, name, value);
        }
        catch (const exchange::GcodeError& error)
        {
            throw UsageError(error.what());
        }
        options.gcodeToolSet = options.gcodeToolSet || name == "tool";
        options.gcodeTitleSet = options.gcodeTitleSet || name == "title";
    }
}

} // namespace

Options readOptions(int argc, const char* const* argv)
{
    const po::variables_map values = parse(argc, argv);
    Options options;
    options.help = values.count("help") != 0;
    options.version = values.count("version") != 0;
    if (options.help || options.version)
        return options;
    options.quiet = values.count("quiet") != 0;
    options.verbose = values.count("verbose") != 0;
    options.files = textsIn(values, "file");
    if (options.files.empty())
        throw UsageError("No part is given.");
    options.output.path = textIn(values, "output");
    options.output.isFolder = options.files.size() > 1;
    if (const std::string format = textIn(values, "format"); !format.empty() || values.count("format"))
        options.output.format = formatNamed(format);
    options.jobs = numberIn(values, "jobs", mostJobs, 1);
    options.threads = numberIn(values, "threads", mostJobs, 0);
    options.templateFile = textIn(values, "template");
    for (const std::string& text : textsIn(values, "set"))
    {
        const auto [key, value] = splitAtEqual(text, "set");
        options.set.set(key, parameterValue(value));
    }
    readGcode(textsIn(values, "gcode"), options);
    return options;
}

std::string helpText()
{
    std::ostringstream text;
    text << "Usage: tessaron-job [OPTION]... PART...\n"
            "Computes the toolpaths of parts (archives of 2-D inputs, XML or binary) and writes each as\n"
            "a G-code program or as an archive, by default beside its part.\n\n"
         << visibleOptions()
         << "\nParameters come from the archive; --template goes before them, and --set before both.\n"
            "\nSettings of the program, with their defaults (--gcode):\n";
    const exchange::GcodeSettings usual;
    for (const exchange::GcodeSetting& setting : exchange::gcodeSettings())
        text << "  " << setting.name << "=" << exchange::gcodeSetting(usual, setting.name) << "\n      "
             << setting.effect << " (" << setting.values << ")\n";
    text << "\nExit status: 0 all done, 1 a part failed, 2 done with warnings.\n";
    return text.str();
}

} // namespace command
