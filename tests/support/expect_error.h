// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include "platform/error.h"

/// Expects that the expression raises a RuntimeError of that number.
#define EXPECT_ERROR(expected_number, ...)                                     \
    do {                                                                       \
        try {                                                                  \
            static_cast<void>(__VA_ARGS__);                                    \
            ADD_FAILURE() << #__VA_ARGS__ " raised nothing";                   \
        } catch (const ::corvane::RuntimeError& raised_error) {                \
            EXPECT_EQ(raised_error.number(), expected_number) << #__VA_ARGS__; \
        }                                                                      \
    } while (false)
