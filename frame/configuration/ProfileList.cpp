#include "frame/configuration/ProfileList.h"

#include "frame/configuration/ConfigPaths.h"
#include "util/platform/AtomicFile.h"
#include "util/platform/FolderLock.h"
#include "util/platform/ReadFile.h"
#include "util/text/Ascii.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace TessaronResources
{

namespace
{

constexpr std::string_view section = "Profiles";
constexpr std::string_view countKey = "Count";
constexpr std::string_view entryKey = "__UserProfile";

/// The lines of an initialisation file. A carriage return before the end of a line is part of the line; new lines have
/// one when the first line has.
class Lines
{
public:
    explicit Lines(std::string_view text)
    {
        while (!text.empty())
        {
            const std::size_t size = text.find('\n');
            m_lines.emplace_back(text.substr(0, size));
            text.remove_prefix(size == std::string_view::npos ? text.size() : size + 1);
        }
        if (!m_lines.empty() && !m_lines.front().empty() && m_lines.front().back() == '\r')
            m_end = "\r";
    }

    std::string text() const
    {
        std::string result;
        for (const std::string& line : m_lines)
            result += line + '\n';
        return result;
    }

    /// Makes the section when it is missing, and keeps where it begins.
    void enterSection()
    {
        for (m_section = 0; m_section < m_lines.size(); ++m_section)
            if (const std::string_view line = util::trimmed(m_lines[m_section]);
                isHeading(line) &&
                util::equalIgnoringAsciiCase(util::trimmed(line.substr(1, line.find(']') - 1)), section))
                return;
        m_lines.push_back('[' + std::string(section) + ']' + m_end);
    }

    std::optional<std::string> value(std::string_view key) const
    {
        const std::size_t line = find(key);
        if (line == m_lines.size())
            return std::nullopt;
        return std::string(util::trimmed(std::string_view(m_lines[line]).substr(m_lines[line].find('=') + 1)));
    }

    void setValue(const std::string& key, const std::string& value)
    {
        const std::size_t line = find(key);
        if (line != m_lines.size())
            m_lines[line] = key + '=' + value + m_end;
        else
            m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(sectionEnd()), key + '=' + value + m_end);
    }

private:
    static bool isHeading(std::string_view line)
    {
        return !line.empty() && line.front() == '[' && line.find(']') != std::string_view::npos;
    }

    /// The line of a key in the section, or the number of lines.
    std::size_t find(std::string_view key) const
    {
        for (std::size_t i = m_section + 1; i < m_lines.size() && !isHeading(util::trimmed(m_lines[i])); ++i)
        {
            const std::string_view line = m_lines[i];
            const std::size_t equals = line.find('=');
            if (equals != std::string_view::npos &&
                util::equalIgnoringAsciiCase(util::trimmed(line.substr(0, equals)), key))
                return i;
        }
        return m_lines.size();
    }

    /// The line after the last one of the section that is not empty.
    std::size_t sectionEnd() const
    {
        std::size_t end = m_section + 1;
        for (std::size_t i = end; i < m_lines.size() && !isHeading(util::trimmed(m_lines[i])); ++i)
            if (!util::trimmed(m_lines[i]).empty())
                end = i + 1;
        return end;
    }

    std::vector<std::string> m_lines;
    std::string m_end;
    std::size_t m_section = 0;
};

/// The number that a text starts with, 0 for a text that starts with none or with one below 0; nothing for a number
/// beyond 32 bits.
std::optional<std::int32_t> readCount(const std::string& text)
{
    std::int32_t count = 0;
    const std::from_chars_result read = std::from_chars(text.data(), text.data() + text.size(), count);
    if (read.ec == std::errc::result_out_of_range)
        return std::nullopt;
    return count < 0 ? 0 : count;
}

/// The bytes of a file, none when there is no such file; nothing when it cannot be read.
std::optional<std::string> readList(const std::string& path)
{
    util::FileContents contents = util::readFile(path, std::numeric_limits<std::size_t>::max());
    if (contents.state == util::FileState::missing)
        return std::string();
    return contents.state == util::FileState::ok ? std::optional(std::move(contents.bytes)) : std::nullopt;
}

} // namespace

std::optional<std::string> withProfile(const std::string& text, const std::string& path)
{
    if (path.find_first_of("\r\n") != std::string::npos)
        return std::nullopt;
    Lines lines(text);
    lines.enterSection();
    const std::optional<std::int32_t> count = readCount(lines.value(countKey).value_or("0"));
    if (!count)
        return std::nullopt;
    lines.setValue(std::string(entryKey) + std::to_string(*count), path);
    lines.setValue(std::string(countKey), std::to_string(std::int64_t(*count) + 1));
    return lines.text();
}

bool addProfile(const std::string& folder, const std::string& listFile, const std::string& path)
{
    // The host's user interface waits meanwhile, and whoever may read the folder can hold it.
    constexpr int patience = 1000;
    const util::FolderLock lock(folder, util::FolderLock::Kind::exclusive, patience);
    if (lock.isBusy())
        return false;
    const std::string list = folder + configPaths::separator + listFile;
    const std::optional<std::string> before = readList(list);
    const std::optional<std::string> after = before ? withProfile(*before, path) : std::nullopt;
    if (!after)
        return false;
    try
    {
        util::AtomicFile file(list, util::AtomicFile::NewFile::ofFolder);
        file.stream() << *after;
        file.commit();
        return true;
    }
    catch (const util::AtomicFileError&)
    {
        return false;
    }
}

} // namespace TessaronResources
