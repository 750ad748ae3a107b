#include "frame/Translation.h"

#include "resources/EmbeddedFile.h"
#include "util/text/ReadableText.h"

#include <wx/log.h>
#include <wx/translation.h>

#include <string_view>

namespace TessaronResources
{

namespace
{

const char domain[] = "TessaronResources";
constexpr std::string_view extension = ".mo";

class EmbeddedLoader : public wxTranslationsLoader
{
public:
    wxMsgCatalog* LoadCatalog(const wxString& name, const wxString& language) override
    {
        const auto* const file = resources::findEmbeddedFile(language.utf8_string().append(extension));
        return file ? wxMsgCatalog::CreateFromData(
                          wxScopedCharBuffer::CreateNonOwned(file->text().data(), file->text().size()), name)
                    : nullptr;
    }

    wxArrayString GetAvailableTranslations(const wxString&) const override
    {
        wxArrayString languages;
        for (const resources::EmbeddedFile& file : resources::embeddedFiles())
        {
            const std::string_view name = file.name;
            if (name.ends_with(extension))
                languages.push_back(wxString::FromUTF8(name.data(), name.size() - extension.size()));
        }
        return languages;
    }
};

// Not the toolkit's own translations, which are the host's.
const wxTranslations& catalogue()
{
    static const wxTranslations& loaded = []() -> const wxTranslations&
    {
        static wxTranslations translations;
        const wxLogNull quiet;
        translations.SetLoader(new EmbeddedLoader);
        translations.AddCatalog(domain, wxLANGUAGE_ENGLISH);
        return translations;
    }();
    return loaded;
}

} // namespace

std::string translated(const std::string& text)
{
    // The empty text stands for the catalogue's header.
    if (text.empty())
        return text;
    const std::string readable = util::readableText(text);
    const wxString* const found = catalogue().GetTranslatedString(wxString::FromUTF8(readable), domain);
    return found ? found->utf8_string() : readable;
}

std::string translatedWith(const char* format, const std::string& value)
{
    std::string text = translated(format);
    if (const std::size_t place = text.find("%s"); place != std::string::npos)
        text.replace(place, 2, util::readableText(value));
    return text;
}

wxString translatedLabel(const char* text)
{
    return wxString::FromUTF8(translated(text));
}

} // namespace TessaronResources
