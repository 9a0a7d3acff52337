#include "heap_meter.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace morvek::bench {
namespace {

std::size_t held = 0;
std::size_t mostHeld = 0;

} // namespace

std::size_t heldBytes() { return held; }

std::size_t mostHeldBytes() { return mostHeld; }

void resetHeapMeter() { mostHeld = held; }

} // namespace morvek::bench

using morvek::bench::held;
using morvek::bench::mostHeld;

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = std::malloc(size);
    if (memory != nullptr) {
        held += malloc_usable_size(memory);
        mostHeld = std::max(mostHeld, held);
    }
    return memory;
}

void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        held -= malloc_usable_size(memory);
        std::free(memory);
    }
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
