#include "qt/longWords.h"

#include <QTextDocument>
#include <QTextOption>
#include <algorithm>

namespace longWords {

namespace {

constexpr qsizetype longest = 5000;  ///< characters of a word, laid out within a few milliseconds

bool hasLongWord(const QString& text) {
    if (text.size() <= longest) return false;
    qsizetype length = 0;
    return std::ranges::any_of(text, [&length](QChar c) {
        length = c.isSpace() ? 0 : length + 1;
        return length > longest;
    });
}

void settle(QPlainTextEdit& area) {
    const auto mode = hasLongWord(area.document()->toRawText()) ? QTextOption::WrapAnywhere
                                                                : QTextOption::WrapAtWordBoundaryOrAnywhere;
    if (area.wordWrapMode() != mode) area.setWordWrapMode(mode);
}

}  // namespace

void watch(QPlainTextEdit& area) {
    // The document tells of a change before it is laid out.
    QObject::connect(area.document(), &QTextDocument::contentsChange, &area, [&area] { settle(area); });
}

}  // namespace longWords
