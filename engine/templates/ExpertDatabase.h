#ifndef ENGINE_TEMPLATES_EXPERTDATABASE_H
#define ENGINE_TEMPLATES_EXPERTDATABASE_H

#include <tessaron/engine/TechnologyExpertData.h>

#include <string>

namespace util::store
{

/// The name of the database file, which lies beside the engine library.
constexpr const char* expertDatabaseName = "TechnologyExpert.db";

/// The folder that the engine library was loaded from, without a separator at the end; empty when it cannot be told.
std::string engineFolder();

/// Reads the option lists out of a database file; a status code as getTechnologyExpertData() gives it. `data` is
/// changed only on success.
int readExpertDatabase(const std::string& path, TechnologyExpertData& data);

} // namespace util::store

#endif
