#include "studio/introEditor.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>
#include <memory>

#include "platform/files.h"
#include "platform/text.h"
#include "qt/longWords.h"
#include "qt/look.h"
#include "studio/fields.h"
#include "studio/givenText.h"
#include "studio/safely.h"
#include "studio/workspace.h"
#include "study/bookPeople.h"
#include "study/introText.h"

namespace introEditor {

namespace {

constexpr const char* table = "tblPatients";
constexpr int longest = 100000;  ///< characters; more is no introduction that anybody reads
constexpr int mostMarks = 500;

struct State {
    std::function<std::optional<int>()> person;
    QPlainTextEdit* edit;
    QLabel* file;
    QLabel* unfit;
    QPushButton* mend;
    QPushButton* own;
    std::optional<int> row = {};  ///< whose introduction is shown
    QString known = {};           ///< as it stands in the study
    bool changing = false;
};

/// With one line feed at the end of each line, as the program reads them.
QString linesOf(QString text) {
    for (const char* end : {"\r\n", "\r", "\u2028", "\u2029"}) text.replace(QString::fromUtf8(end), "\n");
    return text;
}

std::string fileName(const book::Book& book, int row) {
    return book::sheetOf(book, table).text(row, "Intro");
}

QString joined(const std::vector<std::string>& names) {
    QStringList all;
    for (const std::string& name : names) all << QString::fromStdString(name);
    return all.join(", ");
}

QString fileText(int row) {
    const book::Book& book = workspace::book();
    const std::string name = fileName(book, row);
    if (name.empty()) return "There is no introduction yet; what is typed here makes one.";
    QString text = "Patients/" + QString::fromStdString(name);
    if (!files::tryRead(workspace::fileOf(name)))
        text += ": there is no such file; what is typed here makes it.";
    const std::vector<std::string> others = bookPeople::sharers(book, row, "Intro");
    if (!others.empty())
        text += ". It is the introduction of " + joined(others) + " too, and changes for all.";
    return text;
}

/// Marks what is unfit, and how much of each kind there is.
void mark(State& state) {
    const std::string intro = state.known.toStdString();
    int apostrophes = 0;
    int others = 0;
    qsizetype seen = 0;
    std::size_t from = 0;
    QList<QTextEdit::ExtraSelection> marks;
    for (const introText::Spot& spot : introText::unfit(intro)) {
        ++(spot.kind == introText::Kind::Apostrophe ? apostrophes : others);
        if (marks.size() >= mostMarks) continue;
        seen += QString::fromUtf8(intro.data() + from, static_cast<qsizetype>(spot.at - from)).size();
        from = spot.at;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(state.edit->document());
        mark.cursor.setPosition(static_cast<int>(seen));
        mark.cursor.setPosition(static_cast<int>(seen) + 1, QTextCursor::KeepAnchor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(look::colours().alarm);
        mark.format.setForeground(look::colours().alarm);
        mark.format.setFontWeight(QFont::Bold);
        marks << mark;
    }
    state.edit->setExtraSelections(marks);
    QStringList said;
    if (apostrophes > 0)
        said << QString("%1 (marked): a note that holds one cannot be removed by the subject.")
                    .arg(apostrophes == 1 ? QString("One apostrophe")
                                          : QString("%1 apostrophes").arg(apostrophes));
    if (others > 0)
        said << (others == 1 ? QString("One sign that is no text (marked); type it anew.")
                             : QString("%1 signs that are no text (marked); type them anew.").arg(others));
    state.unfit->setText(said.join('\n'));
    state.unfit->setVisible(!said.isEmpty());
    state.mend->setVisible(apostrophes > 0);
    state.edit->setAccessibleDescription(said.join(' '));
}

void setWhole(State& state, const QString& text) {
    state.changing = true;
    state.edit->setPlainText(text);
    state.changing = false;
}

void showText(State& state, const QString& text) {
    state.known = text;
    setWhole(state, text);
}

void refresh(State& state) {
    const std::optional<int> row = state.person();
    state.edit->setEnabled(row.has_value());
    const std::string name = row ? fileName(workspace::book(), *row) : std::string();
    const std::optional<std::string> bytes =
        name.empty() ? std::nullopt : files::tryRead(workspace::fileOf(name));
    const QString wanted = bytes ? linesOf(QString::fromStdString(text::fromFileBytes(*bytes))) : QString();
    if (row != state.row || wanted != state.known) {
        const int at = row == state.row ? state.edit->textCursor().position() : 0;
        showText(state, wanted);
        QTextCursor cursor = state.edit->textCursor();
        cursor.setPosition(std::min(at, static_cast<int>(wanted.size())));
        state.edit->setTextCursor(cursor);
    }
    state.row = row;
    state.file->setText(row ? fileText(*row) : QString());
    state.own->setVisible(row && !bookPeople::sharers(workspace::book(), *row, "Intro").empty());
    mark(state);
}

/// A file of the person's own, named after the person.
std::string newFile(book::Book& book, int row) {
    const std::string person = book::sheetOf(book, table).text(row, "Name");
    std::string name = bookPeople::freeFile(book, workspace::folder(), person + ".txt");
    book::set(book, {table, row, "Intro"}, name);
    return name;
}

/// Puts the text into the person's file; a new one where there is none.
void put(book::Book& book, int row, const QString& text) {
    std::string name = fileName(book, row);
    if (name.empty() || name.find('/') != std::string::npos) name = newFile(book, row);
    workspace::putFile(book, name, text.toStdString());
}

/// From here on the person's introduction is no longer that of others.
void part(const State& state) {
    const std::optional<int> row = state.person();
    if (!row) return;
    workspace::change("Give the introduction a file of its own", [&](book::Book& book) {
        workspace::putFile(book, newFile(book, *row), state.known.toStdString());
    });
}

void write(State& state, const QString& text, const std::string& what, const std::string& of) {
    const std::optional<int> row = state.person();
    if (!row || text == state.known) return;
    if (text.size() > longest && text.size() > state.known.size()) {
        fields::tellProblem(
            QString("Nothing was typed: an introduction has at most %L1 characters here.").arg(longest));
        return showText(state, state.known);
    }
    const QString before = std::exchange(state.known, text);
    try {
        workspace::edit(
            what,
            [&](book::Book& book) {
                put(book, *row, text);
                return std::string();
            },
            of);
        fields::tellProblem({});
    } catch (const std::exception& error) {
        // What was typed stays in the editor, and goes into the study with the next key that can be kept.
        state.known = before;
        fields::tellProblem(QString("The introduction could not be kept: %1").arg(error.what()));
    }
}

/// The text with its line ends; other blanks than the plain one stay what they are.
QString typed(const QPlainTextEdit& edit) { return linesOf(edit.document()->toRawText()); }

}  // namespace

Editor make(const std::function<std::optional<int>()>& person) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const help = new QLabel(
        "The subject reads it on the page \"Patient\" and takes notes of it, at most 99 "
        "characters each.");
    const auto state = std::make_shared<State>(State{person, new QPlainTextEdit, new QLabel, new QLabel,
                                                     new QPushButton("Replace by the typographic ’"),
                                                     new QPushButton("Give it a file of its own")});
    longWords::watch(*state->edit);
    state->edit->setUndoRedoEnabled(false);
    state->edit->setTabChangesFocus(true);
    state->edit->setAcceptDrops(false);  // a picture can be dropped anywhere on the page
    state->edit->setAccessibleName("Introduction");
    state->edit->setMinimumHeight(170);
    state->unfit->setProperty("role", "error");
    state->unfit->setWordWrap(true);
    help->setProperty("role", "help");
    help->setWordWrap(true);
    state->file->setProperty("role", "help");
    givenText::tame(*state->file);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(help);
    column->addWidget(state->edit, 1);
    column->addWidget(state->unfit);
    column->addWidget(state->mend, 0, Qt::AlignLeft);
    column->addWidget(state->file);
    column->addWidget(state->own, 0, Qt::AlignLeft);
    fields::leaveUndoToStudy(*state->edit);
    QObject::connect(state->edit, &QPlainTextEdit::textChanged, state->edit, [state] {
        if (state->changing) return;
        const std::string key = std::string(table) + "/" + std::to_string(state->person().value_or(-1));
        write(*state, typed(*state->edit), "Write the introduction", key + "/text of Intro");
    });
    QObject::connect(state->mend, &QPushButton::clicked, state->edit, [state] {
        const QString text = typed(*state->edit).replace('\'', u'’');
        setWhole(*state, text);
        write(*state, text, "Replace apostrophes", {});
        state->edit->setFocus();
    });
    QObject::connect(state->own, &QPushButton::clicked, state->edit, safely([state](bool) { part(*state); }));
    return {whole, state->edit, [state] { refresh(*state); }};
}

}  // namespace introEditor
