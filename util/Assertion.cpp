#include <tessaron/util/Assertion.h>

namespace util
{

AssertionError::~AssertionError() = default;

void assertionFailed(const char* expression, const char* place, int line)
{
    throw AssertionError(std::string("Expression '") + expression + "' failed in '" + place + ".cpp', line " +
                         std::to_string(line));
}

} // namespace util
