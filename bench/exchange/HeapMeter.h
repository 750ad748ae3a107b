#ifndef BENCH_EXCHANGE_HEAPMETER_H
#define BENCH_EXCHANGE_HEAPMETER_H

#include <cstddef>

namespace bench
{

/// Counts the program's heap while it exists; at most one at a time.
class HeapMeter
{
public:
    HeapMeter();
    ~HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;

    /// Bytes allocated since the start and not freed: now, and the most at any moment.
    std::ptrdiff_t current() const;
    std::ptrdiff_t peak() const;
};

} // namespace bench

#endif
