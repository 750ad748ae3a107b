#include "HeapMeter.h"

#include <cstdlib>
#include <new>

#include <malloc.h>

// The program runs on one thread, so plain counters do.
namespace
{

bool counting = false;
std::ptrdiff_t currentBytes = 0;
std::ptrdiff_t peakBytes = 0;

void* allocate(std::size_t size)
{
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    if (counting)
    {
        currentBytes += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
        if (currentBytes > peakBytes)
            peakBytes = currentBytes;
    }
    return memory;
}

void release(void* memory)
{
    if (counting && memory != nullptr)
        currentBytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size)
{
    return allocate(size);
}
void* operator new[](std::size_t size)
{
    return allocate(size);
}
void operator delete(void* memory) noexcept
{
    release(memory);
}
void operator delete[](void* memory) noexcept
{
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    release(memory);
}

namespace bench
{

HeapMeter::HeapMeter()
{
    counting = true;
    currentBytes = 0;
    peakBytes = 0;
}

HeapMeter::~HeapMeter()
{
    counting = false;
}

std::ptrdiff_t HeapMeter::current() const
{
    return currentBytes;
}

std::ptrdiff_t HeapMeter::peak() const
{
    return peakBytes;
}

} // namespace bench
