#include "util/text/FoldCase.h"

#include "util/text/Ascii.h"

#include <glib.h>

#include <memory>

namespace util
{

std::string foldCase(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end)
    {
        // Most text is ASCII, which needs no table.
        if (static_cast<unsigned char>(*at) < 0x80)
        {
            folded += asciiLower(*at++);
            continue;
        }
        const char* next = at;
        while (next != end && static_cast<unsigned char>(*next) >= 0x80)
            ++next;
        const char* validEnd = at;
        g_utf8_validate_len(at, static_cast<gsize>(next - at), &validEnd);
        if (validEnd == at)
        {
            folded += *at++;
            continue;
        }
        const std::unique_ptr<char, decltype(&g_free)> letters(g_utf8_casefold(at, validEnd - at), &g_free);
        folded += letters.get();
        at = validEnd;
    }
    return folded;
}

} // namespace util
