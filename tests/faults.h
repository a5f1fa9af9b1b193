// An expectation that a run-time fault is thrown: EXPECT_FAULT(Int16(5) % 0, DivisionByZero).
#pragma once

#include <gtest/gtest.h>

#include "platform/fault.h"

#define EXPECT_FAULT(statement, wanted)                                      \
    do {                                                                     \
        using enum FaultNumber;                                              \
        try {                                                                \
            static_cast<void>(statement);                                    \
            ADD_FAILURE() << #statement << " does not fault";                \
        } catch (const Fault& fault) {                                       \
            EXPECT_EQ(fault.number, static_cast<int>(wanted)) << #statement; \
        }                                                                    \
    } while (false)
