#include <tessaron/c/Templates.h>

#include "c/Failure.h"
#include "c/Parameters.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <deque>
#include <string>
#include <vector>

/// Templates that were read. A deque, since handles lead to its members.
struct TessaronTemplateList
{
    std::deque<TessaronParameters> templates;
    std::vector<util::FaultyTemplateFile> faults;
};

namespace
{

using c_interface::Failure;
using c_interface::guarded;
using c_interface::indexBelow;
using c_interface::needed;

void require(int status, const char* file)
{
    if (status != exchange::status::ok)
        throw Failure(status, exchange::statusText(status), {}, file);
}

TessaronTemplateList* listOf(std::vector<util::Parameterized> sets, std::vector<util::FaultyTemplateFile> faults)
{
    std::deque<TessaronParameters> templates;
    for (util::Parameterized& set : sets)
        templates.push_back({std::move(set), true});
    return new TessaronTemplateList{std::move(templates), std::move(faults)};
}

} // namespace

int tessaronTemplatesList(const char* folder, TessaronTemplateList** created)
{
    return guarded(
        [&]
        {
            needed(created, "created");
            std::vector<util::Parameterized> sets;
            std::vector<util::FaultyTemplateFile> faults;
            const int status = util::loadTemplateFiles(needed(folder, "folder"), 0, &sets, &faults);
            if (faults.empty())
                require(status, folder);
            *created = listOf(std::move(sets), std::move(faults));
        });
}

int tessaronTemplatesRead(const char* path, TessaronTemplateList** created)
{
    return guarded(
        [&]
        {
            needed(created, "created");
            std::vector<util::Parameterized> sets;
            require(util::loadTemplateArrayFile(needed(path, "path"), &sets), path);
            *created = listOf(std::move(sets), {});
        });
}

void tessaronTemplatesFree(TessaronTemplateList* templates)
{
    delete templates;
}

size_t tessaronTemplatesCount(const TessaronTemplateList* templates)
{
    return templates == nullptr ? 0 : templates->templates.size();
}

int tessaronTemplatesAt(TessaronTemplateList* templates, size_t index, TessaronParameters** parameters)
{
    return guarded(
        [&]
        {
            auto& all = needed(templates, "templates")->templates;
            *needed(parameters, "parameters") = &all[indexBelow(index, all.size())];
        });
}

size_t tessaronTemplatesFaultCount(const TessaronTemplateList* templates)
{
    return templates == nullptr ? 0 : templates->faults.size();
}

int tessaronTemplatesFault(const TessaronTemplateList* templates, size_t index, const char** path, int* status)
{
    return guarded(
        [&]
        {
            needed(path, "path");
            needed(status, "status");
            const auto& all = needed(templates, "templates")->faults;
            const util::FaultyTemplateFile& fault = all[indexBelow(index, all.size())];
            *path = fault.path.c_str();
            *status = fault.code;
        });
}

int tessaronTemplatesWrite(const TessaronTemplateList* templates, const char* path)
{
    return guarded(
        [&]
        {
            std::vector<util::Parameterized> sets;
            for (const TessaronParameters& set : needed(templates, "templates")->templates)
                sets.push_back(set.values);
            require(util::saveTemplateArrayFile(needed(path, "path"), sets), path);
        });
}

int tessaronTemplateSave(const char* folder, const char* name, int overwrite, TessaronParameters* parameters)
{
    return guarded(
        [&]
        {
            util::Parameterized set = needed(parameters, "parameters")->values;
            set.set(util::keys::templateName, std::string(needed(name, "name")));
            const std::string path = util::templatePath(needed(folder, "folder"), name);
            require(util::saveTemplateFile(path, overwrite == 0, &set), path.c_str());
            parameters->values = set;
        });
}

int tessaronTemplateDelete(const char* folder, const char* name)
{
    return guarded(
        [&]
        {
            util::Parameterized set;
            set.set(util::keys::templateName, std::string(needed(name, "name")));
            require(util::deleteTemplateFile(needed(folder, "folder"), set), folder);
        });
}

int tessaronTemplateFreeName(const char* folder, const char* prefix, const char** name)
{
    return guarded(
        [&]
        {
            needed(name, "name");
            util::Parameterized set;
            require(util::genTemplateName(needed(folder, "folder"), needed(prefix, "prefix"), &set), folder);
            thread_local std::string kept;
            kept = set.stringOr(util::keys::templateName, "");
            *name = kept.c_str();
        });
}
