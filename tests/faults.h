// An expectation that a run-time fault is thrown.
#pragma once

#include <gtest/gtest.h>

#include "platform/fault.h"

#define EXPECT_FAULT(expression, wanted)                                      \
    do {                                                                      \
        try {                                                                 \
            static_cast<void>(expression);                                    \
            ADD_FAILURE() << #expression << " does not fault";                \
        } catch (const Fault& fault) {                                        \
            EXPECT_EQ(fault.number, static_cast<int>(wanted)) << #expression; \
        }                                                                     \
    } while (false)
