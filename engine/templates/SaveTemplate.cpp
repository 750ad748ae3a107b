#include "engine/templates/SaveTemplate.h"

#include "engine/templates/TemplateFile.h"
#include "engine/templates/TemplateFolder.h"
#include "util/platform/FolderLock.h"
#include "util/text/Ascii.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid.hpp>
#include <boost/uuid/uuid_io.hpp>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace util::store
{

namespace
{

namespace status = exchange::status;

/// The layout of the record that is written.
constexpr const char* recordVersion = "1";

/// Where a template comes from that does not say it.
constexpr const char* defaultCam = "KORVEN";

bool isTime(const std::string& text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isAsciiDigit);
}

} // namespace

long long secondsNow()
{
    using std::chrono::duration_cast, std::chrono::seconds, std::chrono::system_clock;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

void ensureCam(Parameterized& set)
{
    if (!set.has(keys::templateCam))
        set.set(keys::templateCam, std::string(defaultCam));
}

void stampTemplate(Parameterized& set, const Parameterized* stored, long long time)
{
    const std::string now = std::to_string(time);
    std::string guid = set.stringOr(keys::templateGuid, "");
    std::string created = set.stringOr(keys::templateDateCreated, "");
    const std::string storedGuid = stored ? stored->stringOr(keys::templateGuid, "") : "";
    if (!storedGuid.empty() && (guid.empty() || guid == storedGuid))
    {
        guid = storedGuid;
        created = stored->stringOr(keys::templateDateCreated, "");
    }
    else if (guid.empty())
    {
        guid = boost::uuids::to_string(boost::uuids::random_generator()());
        created = now;
    }
    set.set(keys::templateGuid, guid);
    set.set(keys::templateVersion, std::string(recordVersion));
    set.set(keys::templateDateCreated, isTime(created) ? created : now);
    set.set(keys::templateDateModified, now);
    ensureCam(set);
}

int saveTemplate(const Folder& folder, const std::string& name, bool failIfExists, Parameterized& set)
{
    // From here on nobody else changes the folder: the place found stays free, and the guid read stays the stored one.
    const FolderLock lock(folder.path(), FolderLock::Kind::exclusive);
    if (lock.isBusy())
        return status::templateWriteError;
    const TemplatePlace place = findTemplate(folder, name);
    if (place.exists && failIfExists)
        return status::templateNameDuplicated;
    if (place.fileName.empty())
        return status::templateWriteError;

    std::optional<StoredTemplate> stored;
    if (place.exists)
        stored = readTemplate(folder, place.fileName);
    Parameterized saved = set;
    saved.set(keys::templateName, name);
    stampTemplate(saved, stored && stored->code == status::ok ? &stored->set : nullptr, secondsNow());

    std::string bytes;
    if (const int code = writeSet(saved, bytes); code != status::ok)
        return code;
    if (!folder.replace(place.fileName, bytes))
        return status::templateWriteError;
    set = std::move(saved);
    return status::ok;
}

int deleteTemplate(const Folder& folder, const std::string& name, const Parameterized& set)
{
    const FolderLock lock(folder.path(), FolderLock::Kind::exclusive);
    if (lock.isBusy())
        return status::templateWriteError;
    const TemplatePlace place = findTemplate(folder, name);
    if (!place.exists)
        return status::templateReadError;

    const std::optional<StoredTemplate> stored = readTemplate(folder, place.fileName);
    const std::string guid = set.stringOr(keys::templateGuid, "");
    const std::string storedGuid = stored ? stored->set.stringOr(keys::templateGuid, "") : "";
    if (!guid.empty() && !storedGuid.empty() && guid != storedGuid)
        return status::templateReadError;
    return folder.remove(place.fileName) ? status::ok : status::templateWriteError;
}

} // namespace util::store
