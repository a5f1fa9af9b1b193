// Character codes that handlers look at, and the handler that most of them want.
#pragma once

#include <functional>
#include <utility>

namespace keys {

constexpr int backspace = 8;
constexpr int enter = 13;
constexpr int options = 111;  ///< the letter o, lower case only: the experimenter's key

/// A key handler that swallows Enter and runs `action` instead.
inline std::function<bool(int)> onEnter(std::function<void()> action) {
    return [action = std::move(action)](int code) {
        if (code != enter) return true;
        action();
        return false;
    };
}

}  // namespace keys
