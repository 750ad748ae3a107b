#ifndef RESOURCES_STRINGTABLE_H
#define RESOURCES_STRINGTABLE_H

namespace TessaronResources::resources
{

/// The user text of an id, UTF-8; the empty text when there is none.
const char* stringText(int id);

} // namespace TessaronResources::resources

#endif
