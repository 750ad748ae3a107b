#include "command/Batch.h"
#include "command/Console.h"
#include "command/Options.h"
#include "command/Terminal.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <cstdio>
#include <exception>

namespace
{

using namespace command;

enum Exit
{
    exitDone = 0,
    exitFailed = 1,
    exitWarnings = 2,
};

/// The parameters of a template that belong to the operation. Which tool cuts, the part says.
util::Parameterized templateValues(const std::string& file)
{
    util::Parameterized values;
    if (file.empty())
        return values;
    if (const int code = util::loadTemplateFile(file, &values); code != 0)
        throw UsageError("\"" + file + "\": " + exchange::statusText(code));
    namespace keys = util::keys;
    for (const util::Key& key :
         {keys::toolDiameter, keys::toolLengthOfCut, keys::toolStickOutLength, keys::templateName,
          keys::templateDescription, keys::templateComments, keys::templateCam, keys::templateVersion,
          keys::templateRating, keys::templateGuid, keys::templateDateCreated, keys::templateDateModified})
        values.erase(key);
    return values;
}

int run(const Options& options)
{
    if (options.help || options.version)
    {
        std::fputs(options.help ? helpText().c_str() : "tessaron-job " TESSARON_VERSION "\n", stdout);
        return std::fflush(stdout) == 0 ? exitDone : exitFailed;
    }
    catchInterrupts();
    int signal = 0;
    std::size_t failures = 0;
    std::size_t warnings = 0;
    {
        Terminal terminal(!options.quiet);
        Batch batch(options, tasksOf(options.files, options.output), templateValues(options.templateFile), terminal);
        batch.run([] { return interruption() != 0; });
        signal = interruption();
        failures = batch.failures();
        warnings = batch.warnings();
    }
    if (signal != 0)
        endBy(signal);
    return failures > 0 ? exitFailed : warnings > 0 ? exitWarnings : exitDone;
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        return run(readOptions(argc, argv));
    }
    catch (const UsageError& error)
    {
        std::fprintf(stderr, "tessaron-job: %s\nTry tessaron-job --help.\n", error.what());
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "tessaron-job: %s\n", error.what());
    }
    return exitFailed;
}
