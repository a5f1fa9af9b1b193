// The tables of the open study as files of comma-separated values: out of the window and into it, with the
// questions and sentences that go with it.
#pragma once

#include <QMainWindow>

namespace tableFiles {

/// Asks for a folder and writes all tables into it.
void write(QMainWindow& window);

/// Asks for a folder and takes the tables in it as one change, or none of them.
void take(QMainWindow& window);

}  // namespace tableFiles
