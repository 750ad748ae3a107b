#ifndef TEMPLATES_TEMPLATEFAILURES_H
#define TEMPLATES_TEMPLATEFAILURES_H

#include "templates/TemplatePrompts.h"

#include <string>
#include <utility>
#include <vector>

namespace TessaronResources
{

/// What went wrong in one action of the user, for one message: each status text once, the names that it concerns below.
class TemplateFailures
{
public:
    /// `line` names what failed, as a line of its own ("\n Template: a"); empty for nothing to name.
    void add(int code, const std::string& line = {});
    /// The message.
    std::string text() const;
    /// Tells the user, if there is anything to tell.
    void tell(TemplatePrompts& prompts) const;

private:
    std::vector<std::pair<int, std::vector<std::string>>> m_lines; ///< by status code, in order of appearance
};

/// The line that names a template or its file.
std::string templateLine(const std::string& name);

} // namespace TessaronResources

#endif
