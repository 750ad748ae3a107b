#ifndef TESSARON_UTIL_ASSERTION_H
#define TESSARON_UTIL_ASSERTION_H

// Stability: stable.

#include <tessaron/util/Export.h>

#include <stdexcept>
#include <string>

namespace util
{

/// Thrown when an invariant of the library's own does not hold. The text names the expression and the place, in the
/// form "Expression '...' failed in '...".
class TESSARON_EXCHANGE_API AssertionError : public std::logic_error
{
public:
    using std::logic_error::logic_error;
    ~AssertionError() override;
};

/// Throws the AssertionError for an expression. `place` is the component that holds it, such as "Util\Params".
[[noreturn]] TESSARON_EXCHANGE_API void assertionFailed(const char* expression, const char* place, int line);

} // namespace util

/// Throws util::AssertionError unless the expression holds. `place` is the component's published name.
#define TESSARON_ASSERT(expression, place)                                                                             \
    ((expression) ? static_cast<void>(0) : ::util::assertionFailed(#expression, place, __LINE__))

#endif
