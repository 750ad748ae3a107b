#include "engine/templates/FileNames.h"

#include "util/text/Ascii.h"
#include "util/text/Utf8.h"
#include <tessaron/engine/TemplatePath.h>

#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid.hpp>

#include <algorithm>
#include <array>
#include <charconv>

namespace util::store
{

namespace
{

constexpr std::string_view digits = "0123456789ABCDEF";
constexpr std::string_view mark = "%~";
constexpr std::string_view forbidden = "\"%*/:<>?\\|\x7F";
// As long as the digest needs it, and with enough of the name left to recognise it by.
constexpr std::size_t digestBytes = 10;

void appendCode(std::string& text, char c)
{
    const auto byte = static_cast<unsigned char>(c);
    text += '%';
    text += digits[byte >> 4U];
    text += digits[byte & 15U];
}

/// Is the file a device on Windows, whatever its extension?
bool isReserved(std::string_view name)
{
    std::string_view base = name.substr(0, name.find('.'));
    base = base.substr(0, base.find_last_not_of(' ') + 1);
    static constexpr std::array<std::string_view, 6> devices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
    if (std::any_of(devices.begin(), devices.end(),
                    [&](std::string_view d) { return equalIgnoringAsciiCase(base, d); }))
        return true;
    if (!equalIgnoringAsciiCase(base.substr(0, 3), "com") && !equalIgnoringAsciiCase(base.substr(0, 3), "lpt"))
        return false;
    // The superscript digits count as digits there.
    static constexpr std::array<std::string_view, 3> superscripts = {"\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};
    const std::string_view port = base.substr(3);
    return (port.size() == 1 && port[0] >= '1' && port[0] <= '9') ||
           std::find(superscripts.begin(), superscripts.end(), port) != superscripts.end();
}

int digitValue(char c)
{
    const std::size_t value = digits.find(c);
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

/// The largest length of at most `room` that cuts neither a code nor a UTF-8 character.
std::size_t cutLength(std::string_view plain, std::size_t room)
{
    if (plain.size() <= room)
        return plain.size();
    const std::size_t length = utf8CutLength(plain, room);
    for (std::size_t back = 1; back <= 2 && back <= length; ++back)
        if (plain[length - back] == '%')
            return length - back;
    return length;
}

} // namespace

std::string plainStem(std::string_view name)
{
    std::string stem;
    stem.reserve(name.size());
    const bool reserved = isReserved(name);
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        const char c = name[i];
        // A dot in front would hide the file; names of devices lose their first letter.
        const bool atStart = i == 0 && (c == '.' || reserved);
        if (atStart || static_cast<unsigned char>(c) < 0x20 || forbidden.find(c) != std::string_view::npos)
            appendCode(stem, c);
        else
            stem += c;
    }
    return stem;
}

std::string markedStem(std::string_view name)
{
    const boost::uuids::uuid digest =
        boost::uuids::name_generator_sha1(boost::uuids::ns::oid())(name.data(), name.size());
    std::string tail(mark);
    for (std::size_t i = 0; i < digestBytes; ++i)
    {
        tail += digits[digest.data[i] >> 4U];
        tail += digits[digest.data[i] & 15U];
    }
    const std::string plain = plainStem(name);
    const std::size_t room = longestFileName - tail.size() - std::string_view(templateExtension).size();
    return plain.substr(0, cutLength(plain, room)) + tail;
}

std::string fileStem(std::string_view name, std::string_view extension)
{
    std::string plain = plainStem(name);
    return plain.size() + extension.size() <= longestFileName ? plain : markedStem(name);
}

std::optional<std::string> nameOfStem(std::string_view stem)
{
    if (stem.find(mark) != std::string_view::npos)
        return std::nullopt;
    std::string name;
    name.reserve(stem.size());
    for (std::size_t i = 0; i < stem.size(); ++i)
    {
        const int high = i + 2 < stem.size() ? digitValue(stem[i + 1]) : -1;
        const int low = high < 0 ? -1 : digitValue(stem[i + 2]);
        if (stem[i] == '%' && low >= 0)
        {
            name += static_cast<char>(high * 16 + low);
            i += 2;
        }
        else
            name += stem[i];
    }
    return name;
}

std::string listedName(std::string_view stem, std::string_view nameInside)
{
    if (!nameInside.empty() && (plainStem(nameInside) == stem || markedStem(nameInside) == stem))
        return std::string(nameInside);
    return nameOfStem(stem).value_or(std::string(nameInside.empty() ? stem : nameInside));
}

std::string firstFreeName(const std::string& prefix, const std::vector<std::string>& names)
{
    // As many numbers as there are names, and one more, always hold a free one.
    std::vector<bool> taken(names.size() + 2);
    for (const std::string& name : names)
    {
        if (name.size() <= prefix.size() ||
            !equalIgnoringAsciiCase(std::string_view(name).substr(0, prefix.size()), prefix))
            continue;
        std::size_t number = 0;
        const char* const end = name.data() + name.size();
        const char* const begin = name.data() + prefix.size();
        const auto [stop, error] = std::from_chars(begin, end, number);
        if (error == std::errc() && stop == end && *begin != '0' && number < taken.size())
            taken[number] = true;
    }
    const auto free = std::find(taken.begin() + 1, taken.end(), false);
    return prefix + std::to_string(free - taken.begin());
}

} // namespace util::store
