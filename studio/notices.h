// Boxes of the window: what happened, and questions with the words of what the buttons do.
#pragma once

#include <QString>
#include <QStringList>

namespace notices {

/// A sentence, and what it is about.
void tell(const QString& sentence, const QString& detail = {});

/// The place of the button that was pressed; the last one is also the way out by Escape.
int ask(const QString& sentence, const QString& detail, const QStringList& buttons);

}  // namespace notices
