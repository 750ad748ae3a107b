#ifndef ENGINE_TEMPLATES_PARALLELFOR_H
#define ENGINE_TEMPLATES_PARALLELFOR_H

#include <cstddef>
#include <functional>

namespace util::store
{

/// Calls work(begin, end) for ranges that together cover 0 to count exactly once, from this thread and, when there is
/// enough to do, from others. Returns when all is done; throws what the first failing call threw.
void parallelFor(std::size_t count, const std::function<void(std::size_t begin, std::size_t end)>& work);

} // namespace util::store

#endif
