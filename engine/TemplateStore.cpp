#include <tessaron/engine/TemplateStore.h>

#include "engine/templates/ExpertDatabase.h"
#include "engine/templates/FileNames.h"
#include "engine/templates/InfoFile.h"
#include "engine/templates/SaveTemplate.h"
#include "engine/templates/TemplateFile.h"
#include "engine/templates/TemplateFolder.h"
#include "engine/templates/TemplateListing.h"
#include "util/platform/Folder.h"
#include "util/platform/FolderLock.h"
#include "util/platform/LibraryFile.h"
#include "util/platform/TemporaryFile.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <exception>
#include <functional>

namespace util
{

namespace
{

namespace status = exchange::status;

constexpr const char* definitionsExtension = ".xml";
constexpr const char* foldersFile = "template_folders.xml";

/// Runs a call of the store; what it throws (there is no other than lack of memory) becomes `code`.
template <class Call>
int guarded(int code, Call call)
{
    try
    {
        return call();
    }
    catch (const std::exception&)
    {
        return code;
    }
}

int codeOfState(FileState state)
{
    switch (state)
    {
    case FileState::ok:
        return status::ok;
    case FileState::tooLarge:
        return status::templateFormatError;
    default:
        return status::templateReadError;
    }
}

/// Reads a file that may be absent, which gives `codeOfMissing`.
int readStoreFile(const std::string& path, std::size_t limit, int codeOfMissing, std::string& bytes)
{
    FileContents contents = readFile(path, limit);
    if (contents.state == FileState::missing)
        return codeOfMissing;
    bytes = std::move(contents.bytes);
    return codeOfState(contents.state);
}

/// The path of a folder as a host gives it, in the platform's form: none at all is the current one.
std::string nativeFolder(const std::string& path)
{
    return path.empty() ? "." : nativePath(path);
}

/// Lists a folder; one that is not there holds nothing.
int listFolder(const std::string& path, std::vector<Parameterized>* templates, std::vector<FaultyTemplateFile>* faulty)
{
    if (templates)
        templates->clear();
    if (faulty)
        faulty->clear();
    return guarded(status::templateReadError,
                   [&]
                   {
                       const Folder folder(nativeFolder(path));
                       if (folder.state() == FileState::missing)
                           return status::ok;
                       if (folder.state() != FileState::ok)
                           return status::templateReadError;
                       store::TemplateListing listing = store::listTemplates(folder);
                       if (faulty)
                           for (const store::FaultyFile& fault : listing.faults)
                               faulty->push_back({templatePath(folder.path(), fault.fileName), fault.code});
                       if (templates)
                           *templates = std::move(listing.templates);
                       return listing.code;
                   });
}

bool lacksGuid(const Parameterized& set)
{
    return set.stringOr(keys::templateGuid, "").empty();
}

/// Gives a set what it lacks of that which every stored template has.
void completeStamp(Parameterized& set)
{
    Parameterized stamped = set;
    store::stampTemplate(stamped, nullptr, store::secondsNow());
    for (const Key& key :
         {keys::templateGuid, keys::templateVersion, keys::templateDateCreated, keys::templateDateModified})
        if (const std::string own = set.stringOr(key, ""); !own.empty())
            stamped.set(key, own);
    set = std::move(stamped);
}

std::string definitionsFile(const std::string& name)
{
    return store::fileStem(name, definitionsExtension) + definitionsExtension;
}

typedef std::function<bool(const std::vector<Parameterized>& sets)> SetsCheck;

/// Keeps a copy of a file, beside it, that is not what it should be: whoever can mend it needs it.
/// \returns false when it cannot be kept.
bool keepDamaged(const Folder& folder, const std::string& fileName, const SetsCheck& isWhole)
{
    const FileContents contents = folder.read(fileName, store::longestTemplateFile);
    std::vector<Parameterized> sets;
    if (contents.state == FileState::missing ||
        (contents.state == FileState::ok && store::readSets(contents.bytes, sets) == status::ok && isWhole(sets)))
        return true;
    const std::string stem = fileName.substr(0, fileName.rfind('.')) + ".damaged";
    std::string kept = stem + definitionsExtension;
    FileStamp stamp;
    for (int number = 2; folder.stamp(kept, stamp) != FileState::missing; ++number)
        kept = stem + "-" + std::to_string(number) + definitionsExtension;
    return contents.state == FileState::ok && folder.replace(kept, contents.bytes);
}

/// Files sets under a file name in a folder that is there. A file that `isWhole` refuses is kept under another name.
int writeSetsFile(const std::string& folderPath, const std::string& fileName, const std::vector<Parameterized>& sets,
                  const SetsCheck& isWhole = {})
{
    std::string bytes;
    if (const int code = store::writeSets(sets, bytes); code != status::ok)
        return code;
    const Folder folder(folderPath);
    if (folder.state() != FileState::ok)
        return status::templateWriteError;
    const FolderLock lock(folderPath, FolderLock::Kind::exclusive);
    if (std::vector<std::string> entries; lock.isHeld() && folder.entries(entries))
        removeLeftovers(folder, entries, fileName);
    return !lock.isBusy() && (!isWhole || keepDamaged(folder, fileName, isWhole)) && folder.replace(fileName, bytes)
               ? status::ok
               : status::templateWriteError;
}

bool isInfo(const std::vector<Parameterized>& sets)
{
    TemplateInfo info;
    return store::infoOfSets(sets, info);
}

bool isFolders(const std::vector<Parameterized>& sets)
{
    std::vector<std::string> folders;
    return store::foldersOfSets(sets, folders);
}

int readSetsFile(const std::string& path, std::size_t limit, int codeOfMissing, std::vector<Parameterized>& sets)
{
    std::string bytes;
    const int code = readStoreFile(path, limit, codeOfMissing, bytes);
    return code == status::ok ? store::readSets(bytes, sets) : code;
}

} // namespace

int getTechnologyExpertData(TechnologyExpertData* data)
{
    if (!data)
        return status::internalError;
    return guarded(status::expertDatabaseCorrupted,
                   [&]
                   {
                       const std::string path = templatePath(thisLibraryFolder(), store::expertDatabaseName);
                       return store::readExpertDatabase(path, *data);
                   });
}

int loadTemplateDefs(const std::string& folder, const std::string& name, TemplateInfo* info)
{
    if (!info)
        return status::internalError;
    return guarded(status::templateReadError,
                   [&]
                   {
                       std::vector<Parameterized> sets;
                       const std::string path = templatePath(nativeFolder(folder), definitionsFile(name));
                       const int code =
                           readSetsFile(path, store::longestTemplateFile, status::templateColumnsMissing, sets);
                       if (code != status::ok)
                           return code;
                       return store::infoOfSets(sets, *info) ? status::ok : status::templateFormatError;
                   });
}

int saveTemplateDefs(const std::string& folder, const std::string& name, const TemplateInfo& info)
{
    if (name.empty())
        return status::templateNameMissing;
    return guarded(status::templateWriteError,
                   [&]
                   {
                       const std::string native = nativeFolder(folder);
                       return makeFolders(native)
                                  ? writeSetsFile(native, definitionsFile(name), store::setsOfInfo(info), isInfo)
                                  : status::templateWriteError;
                   });
}

int loadTemplateFolders(const std::string& path, std::vector<std::string>* folders)
{
    if (!folders)
        return status::internalError;
    return guarded(status::templateReadError,
                   [&]
                   {
                       std::vector<Parameterized> sets;
                       const std::string file = templatePath(nativeFolder(path), foldersFile);
                       constexpr int none = 1;
                       const int code = readSetsFile(file, store::longestTemplateFile, none, sets);
                       if (code != status::ok && code != none)
                           return code;
                       return store::foldersOfSets(sets, *folders) ? status::ok : status::templateFormatError;
                   });
}

int saveTemplateFolders(const std::string& path, const std::vector<std::string>& folders)
{
    return guarded(status::templateWriteError,
                   [&]
                   {
                       const std::string native = nativeFolder(path);
                       return makeFolders(native)
                                  ? writeSetsFile(native, foldersFile, store::setsOfFolders(folders), isFolders)
                                  : status::templateWriteError;
                   });
}

int loadTemplateFiles(const std::string& folder, int /*selector*/, std::vector<Parameterized>* templates)
{
    return templates ? listFolder(folder, templates, nullptr) : status::internalError;
}

int loadTemplateFiles(const std::string& folder, int /*selector*/, std::vector<Parameterized>* templates,
                      std::vector<FaultyTemplateFile>* faulty)
{
    return templates && faulty ? listFolder(folder, templates, faulty) : status::internalError;
}

int findFaultyTemplateFiles(const std::string& folder, std::vector<FaultyTemplateFile>* faulty)
{
    return faulty ? listFolder(folder, nullptr, faulty) : status::internalError;
}

int loadTemplateFile(const std::string& path, Parameterized* result)
{
    if (!result)
        return status::internalError;
    return guarded(status::templateReadError,
                   [&]
                   {
                       const std::string native = nativePath(path);
                       std::string bytes;
                       Parameterized set;
                       int code = readStoreFile(native, store::longestTemplateFile, status::templateReadError, bytes);
                       if (code == status::ok)
                           code = store::readSet(bytes, set);
                       if (code != status::ok)
                           return code;
                       if (lacksGuid(set))
                           return status::templateWithoutGuid;
                       if (set.stringOr(keys::templateName, "").empty())
                           set.set(keys::templateName, store::listedName(splitTemplatePath(native, "").name, ""));
                       store::ensureCam(set);
                       *result = std::move(set);
                       return status::ok;
                   });
}

int loadTemplateArrayFile(const std::string& path, std::vector<Parameterized>* templates)
{
    if (!templates)
        return status::internalError;
    return guarded(status::templateReadError,
                   [&]
                   {
                       std::string bytes;
                       std::vector<Parameterized> sets;
                       int code =
                           readStoreFile(nativePath(path), store::longestArrayFile, status::templateReadError, bytes);
                       if (code == status::ok && store::fileKind(bytes) == store::FileKind::oneSet)
                           code = store::readSet(bytes, sets.emplace_back());
                       else if (code == status::ok)
                           code = store::readSets(bytes, sets);
                       if (code != status::ok)
                           return code;
                       if (std::any_of(sets.begin(), sets.end(), lacksGuid))
                           return status::templateWithoutGuid;
                       std::for_each(sets.begin(), sets.end(), store::ensureCam);
                       *templates = std::move(sets);
                       return status::ok;
                   });
}

int saveTemplateFile(const std::string& path, bool failIfExists, Parameterized* set)
{
    if (!set)
        return status::internalError;
    return guarded(status::templateWriteError,
                   [&]
                   {
                       const TemplatePathParts parts = splitTemplatePath(path, set->stringOr(keys::templateName, ""));
                       const std::string name = parts.isFileName ? store::listedName(parts.name, "") : parts.name;
                       if (name.empty())
                           return status::templateNameMissing;
                       const std::string native = nativePath(parts.folder);
                       if (!makeFolders(native))
                           return status::templateWriteError;
                       const Folder folder(native);
                       return folder.state() == FileState::ok ? store::saveTemplate(folder, name, failIfExists, *set)
                                                              : status::templateWriteError;
                   });
}

int saveTemplateArrayFile(const std::string& path, const std::vector<Parameterized>& templates)
{
    return guarded(status::templateWriteError,
                   [&]
                   {
                       const std::string native = nativePath(path);
                       const std::size_t separator = native.rfind('/');
                       const std::string fileName = native.substr(separator + 1);
                       if (fileName.empty())
                           return status::templateNameMissing;
                       std::vector<Parameterized> stamped = templates;
                       std::for_each(stamped.begin(), stamped.end(), completeStamp);
                       return writeSetsFile(nativeFolder(native.substr(0, separator + 1)), fileName, stamped);
                   });
}

int deleteTemplateFile(const std::string& folder, const Parameterized& set)
{
    const std::string name = set.stringOr(keys::templateName, "");
    if (name.empty())
        return status::templateNameMissing;
    return guarded(status::templateWriteError,
                   [&]
                   {
                       const Folder opened(nativeFolder(folder));
                       return opened.state() == FileState::ok ? store::deleteTemplate(opened, name, set)
                                                              : status::templateReadError;
                   });
}

int genTemplateName(const std::string& folder, const std::string& prefix, Parameterized* result)
{
    if (!result)
        return status::internalError;
    return guarded(status::templateReadError,
                   [&]
                   {
                       const Folder opened(nativeFolder(folder));
                       std::vector<std::string> entries;
                       const bool read = opened.state() == FileState::ok && opened.entries(entries);
                       if (!read && opened.state() != FileState::missing)
                           return status::templateReadError;
                       result->set(keys::templateName, store::firstFreeName(prefix, store::namesOfFiles(entries)));
                       return status::ok;
                   });
}

} // namespace util
