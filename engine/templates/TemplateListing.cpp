#include "engine/templates/TemplateListing.h"

#include "engine/templates/ParallelFor.h"
#include "engine/templates/TemplateFolder.h"
#include "util/platform/FolderLock.h"
#include "util/platform/TemporaryFile.h"
#include "util/text/Ascii.h"
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace util::store
{

namespace
{

namespace status = exchange::status;

typedef std::pair<std::uint64_t, std::uint64_t> FolderId;
typedef std::shared_ptr<const StoredTemplate> StoredPtr;

struct ListedFile
{
    StoredPtr stored;     ///< null when the file was gone
    bool settled = false; ///< an equal stamp means an equal file
};

/// What the files of one folder held; never changed once it is shared.
struct Snapshot
{
    std::vector<std::string> fileNames; ///< as the folder gave them, which it does alike while it has not changed
    std::vector<ListedFile> files;      ///< of the names, in their order
    std::vector<StoredPtr> templates;   ///< the good ones, in listing order
    std::vector<FaultyFile> faults;     ///< in the order of the file names
    std::uint64_t bytes = 0;            ///< sum of the file sizes, which memory use grows with
};

/// The snapshots of the folders listed last.
class SnapshotCache
{
public:
    std::shared_ptr<const Snapshot> find(FolderId folder)
    {
        const std::lock_guard lock(m_mutex);
        for (auto it = m_folders.begin(); it != m_folders.end(); ++it)
            if (it->first == folder)
            {
                m_folders.splice(m_folders.begin(), m_folders, it);
                return it->second;
            }
        return nullptr;
    }

    void put(FolderId folder, std::shared_ptr<const Snapshot> snapshot)
    {
        const std::lock_guard lock(m_mutex);
        m_folders.remove_if([folder](const auto& entry) { return entry.first == folder; });
        m_folders.emplace_front(folder, std::move(snapshot));
        // The newest one stays however large it is: its caller holds the same sets, so that it costs little more.
        std::uint64_t bytes = m_folders.front().second->bytes;
        for (auto it = std::next(m_folders.begin()); it != m_folders.end();)
        {
            bytes += it->second->bytes;
            it = bytes > mostBytes ? m_folders.erase(it) : std::next(it);
        }
    }

private:
    static constexpr std::uint64_t mostBytes = std::uint64_t(512) << 20U;
    std::mutex m_mutex;
    std::list<std::pair<FolderId, std::shared_ptr<const Snapshot>>> m_folders; ///< last used first
};

SnapshotCache& snapshotCache()
{
    static SnapshotCache instance;
    return instance;
}

/// A file that changed so shortly before it was read may change again without a change of its stamp: clocks of file
/// systems tick slowly. Where the stamps show fractions of a second they tick at least every 10 ms.
bool isSettled(const FileStamp& stamp, std::int64_t readAt)
{
    const std::int64_t last = std::max(stamp.modified, stamp.changed);
    const std::int64_t tick = last % 1000000000 == 0 ? 2000000000 : 50000000;
    return last + tick < readAt;
}

std::int64_t now()
{
    using std::chrono::duration_cast, std::chrono::nanoseconds, std::chrono::system_clock;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

/// The names of the template files. An exclusive lock held by a saving process would mean that a name is on the move
/// from one place of the folder to another, and could be missed.
bool templateFileNames(const Folder& folder, std::vector<std::string>& names)
{
    const FolderLock lock(folder.path(), FolderLock::Kind::shared);
    if (!folder.entries(names))
        return false;
    if (lock.isHeld())
        removeLeftovers(folder, names, templateExtension);
    names.erase(std::remove_if(names.begin(), names.end(), [](const auto& name) { return !isTemplateFileName(name); }),
                names.end());
    return true;
}

/// What the files of the snapshot before held, by name.
class PreviousFiles
{
public:
    PreviousFiles(const Snapshot* before, const std::vector<std::string>& fileNames)
        : m_before(before), m_sameNames(before && before->fileNames == fileNames)
    {
        if (!before || m_sameNames)
            return;
        m_places.reserve(before->fileNames.size());
        for (std::size_t i = 0; i < before->fileNames.size(); ++i)
            m_places.emplace(before->fileNames[i], i);
    }

    bool hasSameNames() const { return m_sameNames; }

    const ListedFile* find(const std::string& fileName, std::size_t place) const
    {
        if (!m_before)
            return nullptr;
        if (!m_sameNames)
        {
            const auto it = m_places.find(fileName);
            if (it == m_places.end())
                return nullptr;
            place = it->second;
        }
        const ListedFile& file = m_before->files[place];
        return file.settled ? &file : nullptr;
    }

private:
    const Snapshot* m_before;
    bool m_sameNames;
    std::unordered_map<std::string_view, std::size_t> m_places;
};

/// Gives what a file holds, from the snapshot before where the file is unchanged.
/// \returns whether it had to be read.
bool readIfChanged(const Folder& folder, const std::string& fileName, const ListedFile* before, ListedFile& file)
{
    FileStamp stamp;
    if (before && folder.stamp(fileName, stamp) == FileState::ok && stamp == before->stored->stamp)
    {
        file = *before;
        return false;
    }
    const std::int64_t readAt = now();
    std::optional<StoredTemplate> read = readTemplate(folder, fileName);
    if (!read)
        return true;
    file.settled = read->code != status::templateReadError && isSettled(read->stamp, readAt);
    file.stored = std::make_shared<StoredTemplate>(std::move(*read));
    return true;
}

bool comesBefore(const StoredPtr& a, const StoredPtr& b)
{
    const auto less = [](char x, char y)
    { return static_cast<unsigned char>(asciiLower(x)) < static_cast<unsigned char>(asciiLower(y)); };
    if (std::lexicographical_compare(a->name.begin(), a->name.end(), b->name.begin(), b->name.end(), less))
        return true;
    if (std::lexicographical_compare(b->name.begin(), b->name.end(), a->name.begin(), a->name.end(), less))
        return false;
    return a->name < b->name;
}

/// Puts the templates in listing order, and the faults in the order of the file names.
void arrange(Snapshot& snapshot)
{
    for (std::size_t i = 0; i < snapshot.files.size(); ++i)
    {
        const StoredPtr& stored = snapshot.files[i].stored;
        if (!stored)
            continue;
        snapshot.bytes += stored->stamp.size;
        if (stored->code != status::ok)
            snapshot.faults.push_back({snapshot.fileNames[i], stored->code});
        else if (stored->isTemplate)
            snapshot.templates.push_back(stored);
    }
    std::sort(snapshot.templates.begin(), snapshot.templates.end(), comesBefore);
    std::sort(snapshot.faults.begin(), snapshot.faults.end(),
              [](const FaultyFile& a, const FaultyFile& b) { return a.fileName < b.fileName; });
}

/// What a folder holds now. Null when it cannot be read.
std::shared_ptr<const Snapshot> takeSnapshot(const Folder& folder, std::size_t& filesRead)
{
    auto after = std::make_shared<Snapshot>();
    if (!templateFileNames(folder, after->fileNames))
        return nullptr;

    const FolderId id = folder.identity();
    std::shared_ptr<const Snapshot> listing = snapshotCache().find(id);
    const PreviousFiles previous(listing.get(), after->fileNames);
    after->files.resize(after->fileNames.size());
    std::atomic<std::size_t> reads = 0;
    parallelFor(
        after->files.size(),
        [&](std::size_t begin, std::size_t end)
        {
            for (std::size_t i = begin; i < end; ++i)
                if (readIfChanged(folder, after->fileNames[i], previous.find(after->fileNames[i], i), after->files[i]))
                    ++reads;
        });
    filesRead = reads;
    if (!previous.hasSameNames() || reads > 0)
    {
        arrange(*after);
        listing = after;
        snapshotCache().put(id, listing);
    }
    return listing;
}

} // namespace

TemplateListing listTemplates(const Folder& folder)
{
    TemplateListing listing;
    const std::shared_ptr<const Snapshot> snapshot = takeSnapshot(folder, listing.filesRead);
    if (!snapshot)
    {
        listing.code = status::templateReadError;
        return listing;
    }
    listing.templates.resize(snapshot->templates.size());
    parallelFor(listing.templates.size(),
                [&](std::size_t begin, std::size_t end)
                {
                    for (std::size_t i = begin; i < end; ++i)
                        listing.templates[i] = snapshot->templates[i]->set;
                });
    listing.faults = snapshot->faults;
    listing.code = listing.faults.empty() ? status::ok : listing.faults.front().code;
    return listing;
}

} // namespace util::store
