#include "support/shortage.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace test {

Shortage& Shortage::ofThisThread() {
    thread_local Shortage shortage;
    return shortage;
}

void Shortage::begin(long allocations, bool forGood) {
    left = allocations;
    lasting = forGood;
    active = true;
    asked = 0;
    failures = 0;
}

long Shortage::end() {
    active = false;
    return failures;
}

bool Shortage::fails() {
    if (!active) {
        return false;
    }
    ++asked;
    if (left-- > 0) {
        return false;
    }
    ++failures;
    active = lasting;
    return true;
}

}  // namespace test

namespace {

void* allocate(std::size_t size) noexcept {
    return test::Shortage::ofThisThread().fails() ? nullptr : std::malloc(size != 0 ? size : 1);
}

void* allocateOrThrow(std::size_t size) {
    void* memory = allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
