// Boxes of the window: what happened, and questions with the words of what the buttons do.
#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

namespace notices {

/// A sentence, and what it is about.
void tell(const QString& sentence, const QString& detail = {});

/// A sentence with lines that can be scrolled and copied.
void list(const QString& sentence, const std::vector<std::string>& lines);

/// The place of the button that was pressed; the last one is also the way out by Escape, and stands there
/// once if it has the words of the first.
int ask(const QString& sentence, const QString& detail, const QStringList& buttons);

}  // namespace notices
