#include "util/text/ReadableText.h"

#include <glib.h>

#include <memory>

namespace util
{

namespace
{

typedef std::unique_ptr<char, decltype(&g_free)> Converted;

bool isUtf8(std::string_view text)
{
    const char* const end = text.data() + text.size();
    const char* at = text.data();
    // A zero byte is a character as well.
    while (at != end && !g_utf8_validate_len(at, static_cast<gsize>(end - at), &at) && *at == '\0')
        ++at;
    return at == end;
}

} // namespace

std::string readableText(std::string_view text)
{
    if (isUtf8(text))
        return std::string(text);
    const auto size = static_cast<gssize>(text.size());
    gsize length = 0;
    Converted readable(g_locale_to_utf8(text.data(), size, nullptr, &length, nullptr), &g_free);
    // Windows leaves some codes without a letter; Latin-1 has one for each.
    for (const char* const codePage : {"WINDOWS-1252", "ISO-8859-1"})
        if (!readable)
            readable.reset(g_convert(text.data(), size, "UTF-8", codePage, nullptr, &length, nullptr));
    return readable ? std::string(readable.get(), length) : std::string();
}

} // namespace util
