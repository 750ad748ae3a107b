#include "engine/templates/TemplateFolder.h"

#include "engine/templates/FileNames.h"
#include "engine/templates/SaveTemplate.h"
#include "engine/templates/TemplateFile.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <algorithm>

namespace util::store
{

namespace
{

namespace status = exchange::status;

constexpr std::string_view extension = templateExtension;

std::string_view stemOf(std::string_view fileName)
{
    return fileName.substr(0, fileName.size() - extension.size());
}

/// The file names under which a template of that name may lie, in the order in which they are tried.
std::vector<std::string> candidates(const std::string& name)
{
    std::vector<std::string> stems;
    const auto add = [&stems](std::string stem)
    {
        if (stem.size() + extension.size() <= longestFileName &&
            std::find(stems.begin(), stems.end(), stem) == stems.end())
            stems.push_back(std::move(stem));
    };
    add(plainStem(name));
    add(markedStem(name));
    // A file that came here some other way may hold characters which the store would have coded.
    if (name.front() != '.' && name.find_first_of(std::string_view("/\\\0", 3)) == std::string::npos)
        add(name);
    for (std::string& stem : stems)
        stem += extension;
    return stems;
}

/// Is the file that the system finds under `fileName` the template `name`? On a file system that ignores case it may
/// be one whose name differs in case.
bool holds(const Folder& folder, const std::string& fileName, const std::string& name)
{
    const std::optional<StoredTemplate> found = readTemplate(folder, fileName);
    if (!found)
        return false;
    const std::string_view stem = stemOf(fileName);
    if (found->nameInside == name && (stem == plainStem(name) || stem == markedStem(name)))
        return true;
    std::vector<std::string> entries;
    const bool spelledSo =
        folder.entries(entries) && std::find(entries.begin(), entries.end(), fileName) != entries.end();
    return spelledSo && (found->code != status::ok || found->name == name);
}

} // namespace

bool isTemplateFileName(const std::string& fileName)
{
    return fileName.size() > extension.size() && fileName.front() != '.' &&
           fileName.compare(fileName.size() - extension.size(), extension.size(), extension) == 0;
}

std::optional<StoredTemplate> readTemplate(const Folder& folder, const std::string& fileName)
{
    const FileContents contents = folder.read(fileName, longestTemplateFile);
    if (contents.state == FileState::missing || contents.state == FileState::notAFile)
        return std::nullopt;

    StoredTemplate result;
    result.stamp = contents.stamp;
    if (contents.state != FileState::ok)
    {
        result.code = contents.state == FileState::tooLarge ? status::templateFormatError : status::templateReadError;
        return result;
    }
    if (fileKind(contents.bytes) == FileKind::listOfSets)
    {
        result.isTemplate = false;
        return result;
    }
    Parameterized set;
    result.code = readSet(contents.bytes, set);
    if (result.code == status::ok && set.stringOr(keys::templateGuid, "").empty())
        result.code = status::templateWithoutGuid;
    if (result.code != status::ok)
        return result;

    result.nameInside = set.stringOr(keys::templateName, "");
    result.name = listedName(stemOf(fileName), result.nameInside);
    set.set(keys::templateName, result.name);
    ensureCam(set);
    result.set = std::move(set);
    return result;
}

TemplatePlace findTemplate(const Folder& folder, const std::string& name)
{
    TemplatePlace place;
    const std::vector<std::string> fileNames = candidates(name);
    for (const std::string& fileName : fileNames)
    {
        FileStamp stamp;
        const FileState state = folder.stamp(fileName, stamp);
        if (state == FileState::ok && holds(folder, fileName, name))
            return {fileName, true};
        const bool fromStore = stemOf(fileName) == plainStem(name) || stemOf(fileName) == markedStem(name);
        if (state == FileState::missing && place.fileName.empty() && fromStore)
            place.fileName = fileName;
    }
    return place;
}

std::vector<std::string> namesOfFiles(const std::vector<std::string>& fileNames)
{
    std::vector<std::string> names;
    for (const std::string& fileName : fileNames)
        if (isTemplateFileName(fileName))
            if (std::optional<std::string> name = nameOfStem(stemOf(fileName)))
                names.push_back(std::move(*name));
    return names;
}

} // namespace util::store
