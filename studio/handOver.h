// Results handed over: the report in the browser, the dataset and the plain copy, each made in the background
// with a bar that tells how far it is and can stop it.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace handOver {

/// The buttons and the bar. `patient` names whose time line the report opens with, SUBJECT:TRIAL, or nothing.
QWidget* make(const std::function<std::string()>& patient);

/// What is being made, for a question; empty while there is no such work.
QString atWork();

/// Ends the work and waits until it has put away what was begun.
void stop();

}  // namespace handOver
