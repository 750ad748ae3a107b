#ifndef ENGINE_TEMPLATES_EXPERTDATABASE_H
#define ENGINE_TEMPLATES_EXPERTDATABASE_H

#include <tessaron/engine/TechnologyExpertData.h>

#include <string>

namespace util::store
{

/// The name of the database file, which lies beside the engine library.
constexpr const char* expertDatabaseName = "TechnologyExpert.db";

/// Reads the option lists out of a database file; a status code as getTechnologyExpertData() gives it. `data` is
/// changed only on success.
int readExpertDatabase(const std::string& path, TechnologyExpertData& data);

} // namespace util::store

#endif
