#ifndef TEMPLATES_TEMPLATEMATCH_H
#define TEMPLATES_TEMPLATEMATCH_H

#include <tessaron/util/Parameterized.h>

#include <string>
#include <vector>

namespace TessaronResources
{

/// Which templates are displayed, as TemplatePreferences::matchFilter keeps it. Any other number displays all.
namespace matchFilter
{
constexpr int all = 0;
constexpr int sameToolDiameter = 1;
constexpr int sameTool = 2;
} // namespace matchFilter

/// The texts of the filters, in the order of their numbers.
const std::vector<std::string>& matchFilterTexts();

/// Does a filter display a template, given the operation's current parameters? A key that a set lacks counts as 0.
bool matchesFilter(int filter, const util::Parameterized& set, const util::Parameterized& current);

} // namespace TessaronResources

#endif
