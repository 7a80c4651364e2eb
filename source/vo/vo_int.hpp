// Tests of integer arithmetic, written as conditions that an abort text shows.
#pragma once

#include <cstdint>

/// Whether the sum fits.
constexpr bool VO_INT_ADD_OK(int64_t a, int64_t b) {
    int64_t sum = 0;
    return !__builtin_add_overflow(a, b, &sum);
}

/// Whether the product fits.
constexpr bool VO_INT_MUL_OK(int64_t a, int64_t b) {
    int64_t product = 0;
    return !__builtin_mul_overflow(a, b, &product);
}
