#ifndef UTIL_PLATFORM_PROCESS_H
#define UTIL_PLATFORM_PROCESS_H

namespace util
{

/// The number of this process, which no other process of this machine has at the same time.
unsigned long processId();

} // namespace util

#endif
