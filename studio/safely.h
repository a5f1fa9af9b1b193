// What a press sets off, with whatever it throws told in a box: nothing thrown crosses a frame of the
// toolkit, and the study stays as it was.
#pragma once

#include <concepts>
#include <exception>
#include <utility>

#include "studio/notices.h"

/// The handler, guarded.
template <class Handler>
auto safely(Handler handler) {
    return [handler = std::move(handler)](
        auto&&... values) requires std::invocable<const Handler&, decltype(values)...> {
        try {
            handler(values...);
        } catch (const std::exception& error) {
            notices::tell("That could not be done.", error.what());
        }
    };
}
