#include "util/platform/Process.h"

#include <unistd.h>

namespace util
{

unsigned long processId()
{
    return static_cast<unsigned long>(::getpid());
}

} // namespace util
