// The real program, started from the window: "Play" on a copy of the study, for the experimenter to try,
// whose rows go with the copy when it ends; and in the study's own folder, for a subject.
#pragma once

#include <QString>
#include <functional>
#include <string>

namespace play {

/// Starts the program in this scenario, or in all for an empty name; one program at a time. Throws
/// std::exception.
void start(const std::string& scenario);

/// Starts the program in the study's folder, where it stays when the window closes. Throws std::exception.
void forSubject();

/// Who hears in words that it has begun and ended.
void tellTo(std::function<void(const QString&)> told);

}  // namespace play
