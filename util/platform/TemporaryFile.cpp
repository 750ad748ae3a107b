#include "util/platform/TemporaryFile.h"

#include "util/platform/Process.h"
#include "util/text/Ascii.h"
#include "util/text/Utf8.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>

namespace util
{

namespace
{

// A name of the full length that the system takes has no room for more.
constexpr std::size_t longestPart = 200;
constexpr std::size_t longestUtf8 = 4; // bytes of a character
constexpr std::string_view ending = ".tmp";

/// Takes digits off the end of a text; false when there are none.
bool removeNumber(std::string_view& text)
{
    const std::size_t size = text.size();
    while (!text.empty() && isAsciiDigit(text.back()))
        text.remove_suffix(1);
    return text.size() < size;
}

bool removeEnding(std::string_view& text, std::string_view end)
{
    if (!text.ends_with(end))
        return false;
    text.remove_suffix(end.size());
    return true;
}

} // namespace

std::string temporaryPath(const std::string& target)
{
    static std::atomic<unsigned> counter{0};
    const std::filesystem::path path(target);
    std::string name = path.filename().string();
    name.resize(utf8CutLength(name, longestPart));
    name = '.' + name + '.' + std::to_string(processId()) + '-' + std::to_string(++counter) + std::string(ending);
    return (path.parent_path() / name).string();
}

bool isTemporaryName(std::string_view fileName, std::string_view extension)
{
    if (!fileName.starts_with('.') || !removeEnding(fileName, ending) || !removeNumber(fileName) ||
        !removeEnding(fileName, "-") || !removeNumber(fileName) || !removeEnding(fileName, "."))
        return false;
    const std::string_view part = fileName.substr(1);
    return part.ends_with(extension) || part.size() + longestUtf8 > longestPart;
}

void removeLeftovers(const Folder& folder, const std::vector<std::string>& fileNames, std::string_view extension)
{
    using namespace std::chrono;
    const std::int64_t now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
    constexpr std::int64_t oldEnough = nanoseconds(hours(1)).count();
    for (const std::string& name : fileNames)
    {
        FileStamp stamp;
        if (isTemporaryName(name, extension) && folder.stamp(name, stamp) == FileState::ok &&
            stamp.modified + oldEnough < now)
            folder.remove(name);
    }
}

} // namespace util
