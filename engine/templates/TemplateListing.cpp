#include "engine/templates/TemplateListing.h"

#include "engine/TemplatePath.h"
#include "engine/templates/Parallel.h"
#include "engine/templates/TemplateFolder.h"
#include "exchange/StatusTable.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <list>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>

namespace util::store
{

namespace
{

namespace status = exchange::status;

typedef std::pair<std::uint64_t, std::uint64_t> FolderId;
typedef std::shared_ptr<const StoredTemplate> Remembered;

/// What the files of one folder held; never changed once it is shared.
struct Snapshot
{
    std::unordered_map<std::string, Remembered> files;
    std::uint64_t bytes = 0; ///< sum of the file sizes, which the memory taken goes with
};

/// The snapshots of the folders listed last.
class Memory
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

    void keep(FolderId folder, std::shared_ptr<const Snapshot> snapshot)
    {
        const std::lock_guard lock(m_mutex);
        m_folders.remove_if([folder](const auto& entry) { return entry.first == folder; });
        m_folders.emplace_front(folder, std::move(snapshot));
        std::uint64_t bytes = 0;
        for (auto it = m_folders.begin(); it != m_folders.end();)
        {
            bytes += it->second->bytes;
            it = bytes > mostBytes ? m_folders.erase(it) : std::next(it);
        }
    }

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_folders.clear();
    }

private:
    static constexpr std::uint64_t mostBytes = std::uint64_t(512) << 20U;
    std::mutex m_mutex;
    std::list<std::pair<FolderId, std::shared_ptr<const Snapshot>>> m_folders; ///< last used first
};

Memory& memory()
{
    static Memory instance;
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

/// Removes temporary files of saving processes that died. The caller's claim on the folder says that no process on this
/// machine is saving now; the age leaves those of other machines in peace.
void removeLeftovers(const Folder& folder, const std::vector<std::string>& names)
{
    constexpr std::int64_t oldEnough = std::int64_t(3600) * 1000000000;
    const std::string part = std::string(templateExtension) + '.';
    for (const std::string& name : names)
    {
        constexpr std::string_view ending = ".tmp";
        const bool temporary =
            name.front() == '.' && name.find(part) != std::string::npos &&
            name.compare(name.size() - std::min(name.size(), ending.size()), ending.size(), ending) == 0;
        FileStamp stamp;
        if (temporary && folder.stamp(name, stamp) == FileState::ok && stamp.modified + oldEnough < now())
            folder.remove(name);
    }
}

/// The names of the template files. An exclusive claim held by a saving process would mean that a name is on the move
/// from one place of the folder to another, and could be missed.
bool templateFileNames(const Folder& folder, std::vector<std::string>& names)
{
    const FolderLock lock(folder, FolderLock::Kind::shared);
    if (!folder.entries(names))
        return false;
    if (lock.isHeld())
        removeLeftovers(folder, names);
    names.erase(std::remove_if(names.begin(), names.end(), [](const auto& name) { return !isTemplateFileName(name); }),
                names.end());
    return true;
}

struct ListedFile
{
    Remembered stored; ///< null when the file is gone
    bool settled = false;
};

ListedFile look(const Folder& folder, const std::string& fileName, const Snapshot* before, std::size_t& reads)
{
    if (before)
        if (const auto it = before->files.find(fileName); it != before->files.end())
        {
            FileStamp stamp;
            if (folder.stamp(fileName, stamp) == FileState::ok && stamp == it->second->stamp)
                return {it->second, true};
        }
    ++reads;
    const std::int64_t readAt = now();
    std::optional<StoredTemplate> read = readTemplate(folder, fileName);
    if (!read)
        return {};
    const bool settled = read->code != status::templateReadError && isSettled(read->stamp, readAt);
    return {std::make_shared<StoredTemplate>(std::move(*read)), settled};
}

bool comesBefore(const Remembered& a, const Remembered& b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    const auto less = [lower](char x, char y)
    { return static_cast<unsigned char>(lower(x)) < static_cast<unsigned char>(lower(y)); };
    if (std::lexicographical_compare(a->name.begin(), a->name.end(), b->name.begin(), b->name.end(), less))
        return true;
    if (std::lexicographical_compare(b->name.begin(), b->name.end(), a->name.begin(), a->name.end(), less))
        return false;
    return a->name < b->name;
}

} // namespace

int listTemplates(const Folder& folder, std::vector<Parameterized>& templates, std::size_t* filesRead)
{
    std::vector<std::string> fileNames;
    if (!templateFileNames(folder, fileNames))
        return status::templateReadError;
    std::sort(fileNames.begin(), fileNames.end());

    const FolderId id = folder.identity();
    const std::shared_ptr<const Snapshot> before = memory().find(id);
    std::vector<ListedFile> files(fileNames.size());
    std::atomic<std::size_t> reads = 0;
    inParallel(files.size(),
               [&](std::size_t begin, std::size_t end)
               {
                   std::size_t own = 0;
                   for (std::size_t i = begin; i < end; ++i)
                       files[i] = look(folder, fileNames[i], before.get(), own);
                   reads += own;
               });
    if (filesRead)
        *filesRead = reads;

    int code = status::ok;
    auto after = std::make_shared<Snapshot>();
    after->files.reserve(files.size());
    std::vector<Remembered> found;
    found.reserve(files.size());
    for (std::size_t i = 0; i < files.size(); ++i)
    {
        const Remembered& stored = files[i].stored;
        if (!stored)
            continue;
        if (stored->code != status::ok && code == status::ok)
            code = stored->code;
        if (stored->code == status::ok && stored->isTemplate)
            found.push_back(stored);
        if (files[i].settled)
        {
            after->files.emplace(std::move(fileNames[i]), stored);
            after->bytes += stored->stamp.size;
        }
    }
    memory().keep(id, std::move(after));

    std::stable_sort(found.begin(), found.end(), comesBefore);
    std::vector<Parameterized> result(found.size());
    inParallel(found.size(),
               [&](std::size_t begin, std::size_t end)
               {
                   for (std::size_t i = begin; i < end; ++i)
                       result[i] = found[i]->set;
               });
    templates = std::move(result);
    return code;
}

void forgetListings()
{
    memory().clear();
}

} // namespace util::store
