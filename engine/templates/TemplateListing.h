#ifndef ENGINE_TEMPLATES_TEMPLATELISTING_H
#define ENGINE_TEMPLATES_TEMPLATELISTING_H

#include "util/platform/Folder.h"
#include <tessaron/util/Parameterized.h>

#include <cstddef>
#include <string>
#include <vector>

namespace util::store
{

/// Lists the templates of an open folder as loadTemplateFiles() says, from this process's memory of what unchanged
/// files held and from the files themselves. `filesRead` receives how many files had to be read.
int listTemplates(const Folder& folder, std::vector<Parameterized>& templates, std::size_t* filesRead = nullptr);

/// A template file that does not read, and why.
struct FaultyFile
{
    std::string fileName;
    int code = 0;
};

/// The files that a listing would skip, in name order.
/// \returns as listTemplates().
int listFaults(const Folder& folder, std::vector<FaultyFile>& faults);

/// Forgets what files held, so that the next listing reads all of them.
void forgetListings();

} // namespace util::store

#endif
