// The edge of the program towards the toolkit: whatever the toolkit calls runs in here, and nothing that is
// thrown crosses a frame of the toolkit. An error is reported and ends the program.
#pragma once

#include <QObject>
#include <concepts>
#include <functional>
#include <string>
#include <utility>

namespace edge {

/// How an error is reported before the program ends with status 3; a box on the desktop.
void onError(std::function<void(const std::string& report)> report);

/// Runs what an event sets off. After an error nothing is run any more.
void run(const std::function<void()>& handler);

/// Runs what only shows how things stand or sorts events: painting, layout, which window takes the input. It
/// goes on while an error is on show. An error of its own is reported from the event loop, since no box can
/// come up in the midst of painting.
void guard(const std::function<void()>& work);

/// A signal of the toolkit and what it sets off.
template <class Sender, class Signal, class Handler>
void connect(const Sender* sender, Signal signal, Handler handler) {
    QObject::connect(
        sender, signal, sender,
        [handler = std::move(handler)](
            auto&&... values) requires std::invocable<const Handler&, decltype(values)...> {
            run([&] { handler(values...); });
        });
}

}  // namespace edge
