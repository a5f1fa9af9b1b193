// Pilots in the background: tavix-pilot plays simulated subjects on a copy of the study, a few at first so
// that there is something to see early, then all. What was begun is thrown away when something else is
// wished.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "study/pilotFigures.h"

namespace pilotRuns {

struct Wish {
    std::string scenario;
    std::vector<std::string> policies;
    int subjects;  ///< of each policy
    int patients;  ///< of each subject
};

/// What came of the subjects so far.
struct News {
    std::vector<pilotFigures::Outcome> outcomes = {};
    int subjects = 0;     ///< of each policy
    QString faults = {};  ///< of sessions that the program ended itself, in its words; mostly empty
    bool last = false;
};

struct Hearers {
    std::function<void(const News&)> news;
    /// Subjects done, of how many.
    std::function<void(int done, int all)> progress;
    /// Why it cannot be played, in the words of what refused.
    std::function<void(const QString&)> problem;
};

struct Runner {
    std::function<void(const Wish&)> start;
    std::function<void()> stop;
};

/// Whatever runs ends with `owner`, and with this program.
Runner make(QObject* owner, const Hearers& hearers);

}  // namespace pilotRuns
