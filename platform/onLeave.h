// What has to be put back at the end of a scope, however the scope is left: a program can end, or a fault can
// come, under any box or form that waits.
#pragma once

#include <functional>
#include <utility>

struct OnLeave {
    std::function<void()> putBack;

    explicit OnLeave(std::function<void()> action) : putBack(std::move(action)) {}
    ~OnLeave() { putBack(); }
    OnLeave(const OnLeave&) = delete;
    OnLeave& operator=(const OnLeave&) = delete;
};
