#include "studio/givenText.h"

namespace givenText {

namespace {

constexpr int longest = 60;  ///< characters of a text within a sentence

}  // namespace

void tame(QLabel& label) {
    label.setTextFormat(Qt::PlainText);
    label.setWordWrap(true);
    label.setMinimumWidth(1);  // else that of the longest word
}

QLabel* title() {
    auto* const made = new QLabel;
    tame(*made);
    made->setTextFormat(Qt::RichText);
    return made;
}

void setTitle(QLabel& title, const std::string& name) {
    title.setText("<h2>" + QString::fromStdString(name).toHtmlEscaped() + "</h2>");
}

QString shortened(const QString& text) {
    return text.size() <= longest ? text : text.left(longest - 1) + "…";
}

}  // namespace givenText
