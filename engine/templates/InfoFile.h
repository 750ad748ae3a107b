#ifndef ENGINE_TEMPLATES_INFOFILE_H
#define ENGINE_TEMPLATES_INFOFILE_H

#include <tessaron/engine/TemplateInfo.h>
#include <tessaron/util/Parameterized.h>

#include <string>
#include <vector>

namespace util::store
{

// Template definitions and folder lists as lists of parameter sets, which is how they are filed. The first set of
// definitions holds the view settings, each further one a column.

std::vector<Parameterized> setsOfInfo(const TemplateInfo& info);
/// False when the sets are no definitions; `info` is changed only when they are. What a set does not say keeps its
/// default, so that files of older and newer versions read.
bool infoOfSets(const std::vector<Parameterized>& sets, TemplateInfo& info);

std::vector<Parameterized> setsOfFolders(const std::vector<std::string>& folders);
bool foldersOfSets(const std::vector<Parameterized>& sets, std::vector<std::string>& folders);

} // namespace util::store

#endif
