#ifndef ENGINE_TEMPLATES_SAVETEMPLATE_H
#define ENGINE_TEMPLATES_SAVETEMPLATE_H

#include "util/platform/Folder.h"
#include <tessaron/util/Parameterized.h>

#include <string>

namespace util::store
{

/// Gives a template that does not name its CAM system the one that it then counts as coming from.
void ensureCam(Parameterized& set);

/// Gives a template what the store keeps: guid, version, dates and CAM system. `stored` is the template whose place it
/// takes, or null. `time` is in seconds since 1970.
void stampTemplate(Parameterized& set, const Parameterized* stored, long long time);

/// Now, in seconds since 1970.
long long secondsNow();

/// Saves and deletes as saveTemplateFile() and deleteTemplateFile() say, in an open folder. The name is not empty.
int saveTemplate(const Folder& folder, const std::string& name, bool failIfExists, Parameterized& set);
int deleteTemplate(const Folder& folder, const std::string& name, const Parameterized& set);

} // namespace util::store

#endif
