// "Play": the real program on a copy of the study, for the experimenter to try. What it writes goes with the
// copy when it ends.
#pragma once

#include <QString>
#include <functional>
#include <string>

namespace play {

/// Starts the program in this scenario, or in all for an empty name; one program at a time. Throws
/// std::exception.
void start(const std::string& scenario);

/// Who hears in words that it has begun and ended.
void tellTo(std::function<void(const QString&)> told);

}  // namespace play
