// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/allocations.h"

#include <malloc.h>

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

// For one thread, as the simulated desktop is.
corvane::testing::Allocations in_use;

void Count(void* block, std::int64_t sign) {
    in_use.blocks += sign;
    in_use.bytes += sign * static_cast<std::int64_t>(malloc_usable_size(block));
}

}  // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    Count(block, 1);
    return block;
}

// A sanitizer's own would be given back to the one below.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    void* const block = std::malloc(size);
    if (block != nullptr) Count(block, 1);
    return block;
}

void operator delete(void* block) noexcept {
    if (block == nullptr) return;
    Count(block, -1);
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

namespace corvane::testing {

Allocations AllocationsInUse() {
    return in_use;
}

}  // namespace corvane::testing
