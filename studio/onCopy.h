// Programs that run on a copy of the study. The copy goes when its program ends, and all of them end with the
// window.
#pragma once

#include <QProcess>
#include <QStringList>
#include <functional>
#include <string>

namespace onCopy {

struct Wish {
    std::string folder;  ///< the copy, from workspace::rehearsal; it belongs to the program from here on
    QString program;
    QStringList arguments;
    /// Called once, before the copy goes: whether the program came to a good end, and what it said on
    /// standard error, or why it could not be started.
    std::function<void(bool good, const QString& said)> ended;
};

/// Starts the program. The process is deleted some time after it has ended.
QProcess* start(const Wish& wish);

/// Whether any of them runs.
bool atWork();

/// Ends a program whose end nobody wants to hear of.
void stop(QProcess* process);

}  // namespace onCopy
