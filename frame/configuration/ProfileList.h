#ifndef FRAME_CONFIGURATION_PROFILELIST_H
#define FRAME_CONFIGURATION_PROFILELIST_H

#include <optional>
#include <string>

namespace TessaronResources
{

/// The text of an initialisation file with one more entry in its list of profiles: the section "Profiles" holds "Count"
/// and the entries "__UserProfile0", "__UserProfile1", … Everything else in the text stays as it is.
///
/// Names of sections and keys are the same in capitals and small letters, and the first of two that are alike counts.
/// \returns nothing when the entry cannot be added without loss: the path holds a line break, or the count is beyond 32
/// bits.
std::optional<std::string> withProfile(const std::string& text, const std::string& path);

/// Adds an entry to the list of profiles in a file. The file is made when it is missing, its folder is not. Two
/// processes that add at the same time both get their entry. The file keeps its access rights and its group, and a new
/// one has those of its folder: it is every user's.
/// \returns whether the entry is there. Otherwise the file is as it was: it cannot be read or written, its folder is
/// missing or locked by somebody else for too long, or the entry cannot be added (see withProfile).
bool addProfile(const std::string& folder, const std::string& listFile, const std::string& path);

} // namespace TessaronResources

#endif
