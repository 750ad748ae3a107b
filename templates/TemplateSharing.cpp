#include "templates/TemplateSharing.h"

#include "frame/Translation.h"
#include "util/text/ReadableText.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <filesystem>
#include <memory>

namespace TessaronResources
{

namespace
{

namespace status = exchange::status;

std::string folderOf(const std::string& path)
{
    return std::filesystem::path(path).parent_path().string();
}

/// \returns whether the file could be read.
bool readFile(const std::string& path, std::vector<util::Parameterized>& templates, TemplateFailures& failures)
{
    const bool isSingle = path.ends_with(util::templateExtension);
    int code = status::ok;
    if (isSingle)
    {
        templates.resize(1);
        code = util::loadTemplateFile(path, &templates.front());
        // An export may carry this extension too.
        if (code == status::templateFormatError && util::loadTemplateArrayFile(path, &templates) == status::ok)
            code = status::ok;
    }
    else
        code = util::loadTemplateArrayFile(path, &templates);
    if (code != status::ok)
        failures.add(code,
                     isSingle ? templateLine(path) : translated("\n Template Array: ") + util::readableText(path));
    return code == status::ok;
}

} // namespace

std::size_t importTemplates(const std::string& folder, TemplatePrompts& prompts, TemplateFailures& failures)
{
    const std::vector<std::string> paths = prompts.chooseImportFiles(prompts.lastFolder());
    if (paths.empty())
        return 0;
    prompts.keepLastFolder(folderOf(paths.front()));

    std::size_t saved = 0;
    const std::unique_ptr<TemplateProgress> progress = prompts.showImport(paths.size());
    for (std::size_t done = 0; done < paths.size() && progress->goesOn(done); ++done)
    {
        std::vector<util::Parameterized> templates;
        if (!readFile(paths[done], templates, failures))
            continue;
        for (util::Parameterized& set : templates)
        {
            // For the sake of the display only: a file is taken whole.
            progress->goesOn(done);
            const std::string name = set.stringOr(util::keys::templateName, "");
            const int code = util::saveTemplateFile(util::templatePath(folder, name), false, &set);
            if (code != status::ok)
                failures.add(code, templateLine(name));
            else
                ++saved;
        }
    }
    return saved;
}

bool exportTemplates(const TemplateRows& rows, const std::vector<std::size_t>& numbers, TemplatePrompts& prompts,
                     TemplateFailures& failures)
{
    const std::string path = prompts.chooseExportFile(prompts.lastFolder());
    if (path.empty())
        return false;
    prompts.keepLastFolder(folderOf(path));
    std::vector<util::Parameterized> templates;
    templates.reserve(numbers.size());
    for (const std::size_t row : numbers)
        templates.push_back(rows.at(row));
    const int code = util::saveTemplateArrayFile(path, templates);
    if (code != status::ok)
        failures.add(code, templateLine(path));
    return code == status::ok;
}

} // namespace TessaronResources
