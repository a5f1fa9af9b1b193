#include "qt/longWords.h"

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

}  // namespace

void setWrapping(QPlainTextEdit& area, const QString& text) {
    const auto mode =
        hasLongWord(text) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
    if (area.wordWrapMode() != mode) area.setWordWrapMode(mode);
}

void setText(QPlainTextEdit& area, const QString& text) {
    if (hasLongWord(text)) setWrapping(area, text);
    area.setPlainText(text);
    setWrapping(area, text);
}

}  // namespace longWords
