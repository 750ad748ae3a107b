#include "templates/TemplateFailures.h"

#include "util/text/ReadableText.h"

#include <algorithm>

namespace TessaronResources
{

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
        for (const std::string& line : lines)
            text += line;
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
    return translated("\n Template: ") + util::readableText(name);
}

} // namespace TessaronResources
