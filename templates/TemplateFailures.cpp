#include "templates/TemplateFailures.h"

#include <algorithm>

namespace TessaronResources
{

namespace
{

constexpr std::size_t mostNamed = 12; // for each reason

} // namespace

void TemplateFailures::add(int code, const std::string& line)
{
    auto found =
        std::find_if(m_lines.begin(), m_lines.end(), [code](const auto& reason) { return reason.first == code; });
    if (found == m_lines.end())
        found = m_lines.insert(m_lines.end(), {code, {}});
    if (!line.empty())
        found->second.push_back(line);
}

std::string TemplateFailures::text() const
{
    std::string text;
    for (const auto& [code, lines] : m_lines)
    {
        text += (text.empty() ? "" : "\n") + translated(exchange::statusText(code));
        const std::size_t named = lines.size() > mostNamed ? mostNamed - 1 : lines.size();
        for (std::size_t i = 0; i < named; ++i)
            text += lines[i];
        if (named < lines.size())
            text += translatedWith("\n and %s more", std::to_string(lines.size() - named));
    }
    return text;
}

void TemplateFailures::tell(TemplatePrompts& prompts) const
{
    if (!m_lines.empty())
        prompts.showError(text());
}

std::string templateLine(const std::string& name)
{
    return translated("\n Template: ") + name;
}

} // namespace TessaronResources
