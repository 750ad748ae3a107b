#ifndef ENGINE_POCKETING_KNOWNKEYS_H
#define ENGINE_POCKETING_KNOWNKEYS_H

#include <string>
#include <string_view>

namespace exchange::pocketing
{

/// Whether a key is one of the vocabulary of operations.
bool isKnownKey(std::string_view key);

/// Whether a key describes an operation without changing its toolpath.
bool isDescription(std::string_view key);

/// The known key that one differs from in capitals and blanks only; empty when there is none.
std::string keyMeant(std::string_view key);

} // namespace exchange::pocketing

#endif
