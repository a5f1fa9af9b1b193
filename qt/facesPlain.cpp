// Faces of frames, labels, pictures and lines: what only shows.
#include <QGroupBox>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <memory>
#include <string_view>

#include "platform/fault.h"
#include "qt/emblem.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"
#include "qt/tableGrid.h"

namespace faces {

namespace {

constexpr Look frameTitle{165};

int alignmentOf(const Control& control) {
    switch (control.look.align) {
        case Look::Align::Right: return Qt::AlignRight;
        case Look::Align::Centre: return Qt::AlignHCenter;
        default: return Qt::AlignLeft;
    }
}

QFont labelFont(const QLabel& label, const Control& control, const QString& text) {
    if (control.look.table != 0) return tableGrid::fontOf(control);
    const QFont font = look::font(control.look, geometry::scaleOf(control));
    const int flags = geometry::wraps(control) ? Qt::TextWordWrap : 0;
    return control.look.clips ? font : geometry::fitted(font, text, label.contentsRect().size(), flags);
}

/// What the label shows of a text in its font; of one that wraps, a word too wide for its line is cut.
QString shownIn(QLabel& label, const Control& control, const QString& text) {
    const int width = label.contentsRect().width();
    if (!geometry::wraps(control)) return geometry::cut(label, text, width);
    if (control.look.table == 0) return text;
    QStringList words = text.split(' ');
    for (QString& word : words) word = geometry::cut(label, word, width);
    const QString shown = words.join(' ');
    label.setToolTip(shown == text ? QString() : text);
    return shown;
}

void setLabelText(QLabel& label, const Control& control) {
    const QString text = labelText(control);
    label.setFont(labelFont(label, control, text));
    const bool inCells = control.look.cells != Look::Cells::None;
    label.setText(inCells ? text : shownIn(label, control, text));
    label.update();
}

/// What wraps begins at the top, but for the table's cells, which stand beside others of fewer lines.
int uprightOf(const Control& control) {
    return geometry::wraps(control) && control.look.table == 0 ? Qt::AlignTop : Qt::AlignVCenter;
}

/// A label that answers a double click is reached and pressed by keyboard too.
void makePressable(QLabel& label, Control& control) {
    label.setFocusPolicy(Qt::StrongFocus);
    label.setToolTip("Double click to measure");
    label.setProperty("role", "request");
    hookDoubleClicks(&label, control);
    hookKeys(&label, control);
}

QString withDigits(QString text, QChar digit) {
    for (QChar& character : text)
        if (character.isDigit()) character = digit;
    return text;
}

/// Whether texts of this form have the label's font whatever their digits are, and are whole in it: then a
/// tick changes neither the font nor what is cut.
bool fitsWithAnyDigits(const QLabel& label, const Control& control, const QString& text) {
    const QSize room = label.contentsRect().size();
    return std::ranges::all_of(std::string_view("0123456789"), [&](char digit) {
        const QString other = withDigits(text, QLatin1Char(digit));
        return labelFont(label, control, other) == label.font() &&
               geometry::hasRoom(label.font(), other, room, 0);
    });
}

/// A text that changes at every tick brings the card's ground along, so that nothing behind it is painted
/// anew.
void standAlone(QLabel& label) {
    hookPainting(&label, [&label](QWidget*) {
        QPainter painter(&label);
        painter.fillRect(label.rect(), look::colours().card);
        painter.setPen(look::colours().text);
        painter.drawText(label.contentsRect(), static_cast<int>(label.alignment()), label.text());
    });
}

/// A label whose text is measured anew only when more than its digits has changed.
Face ticking(QLabel& label, Control& control) {
    standAlone(label);
    const auto roomy =
        std::make_shared<QString>();  // a text with zeros that has room; empty if none is known
    const auto restyle = [roomy, &label, &control] {
        setLabelText(label, control);
        label.setAttribute(Qt::WA_OpaquePaintEvent);  // the style sheet takes it away
        const QString text = labelText(control);
        *roomy = fitsWithAnyDigits(label, control, text) ? withDigits(text, '0') : QString();
    };
    const auto show = [roomy, restyle, &label, &control](Property property) {
        if (property != Property::Caption) return;
        const QString text = labelText(control);
        const bool sameRoom = !roomy->isEmpty() && withDigits(text, '0') == *roomy;
        sameRoom ? label.setText(text) : restyle();
    };
    return {&label, show, restyle, {}};
}

Face framed(Control& control, QWidget* parent) {
    auto* box = new QGroupBox(parent);
    const auto restyle = [box, &control] {
        box->setFont(look::font(frameTitle, geometry::scaleOf(control)));
        box->setTitle(literally(control.caption));
    };
    return {box,
            [restyle](Property property) {
                if (property == Property::Caption) restyle();
            },
            restyle, [box](int) { return box; }};
}

/// The largest size of the same shape in that room; a thin picture keeps a pixel.
QSize fitted(QSize picture, QSize room) {
    return picture.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

/// The file's picture, no larger than a screen has use for: a photo of 50 megapixels would hold 200 MB and be
/// scaled anew at each size of the window. Faults if the toolkit cannot read it after all.
QPixmap readPicture(const std::string& path) {
    constexpr QSize largest(2000, 2000);
    if (path.empty()) return {};
    QImageReader::setAllocationLimit(0);  // how large a picture may be is judged by pictures::check
    QImage image = QImageReader(toQt(path)).read();
    if (image.isNull()) raiseFault(FaultNumber::InvalidPicture, path);
    if (image.width() > largest.width() || image.height() > largest.height())
        image = image.scaled(fitted(image.size(), largest), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return QPixmap::fromImage(image);
}

}  // namespace

QString labelText(const Control& label) {
    static const QRegularExpression beforePercentage(" (?=\\d+%)");
    const QString text = toQt(label.caption);
    return text.contains('%') ? QString(text).replace(beforePercentage, QChar(QChar::Nbsp)) : text;
}

Face frame(Control& control, QWidget* parent) { return framed(control, parent); }

Face label(Control& control, QWidget* parent) {
    if (control.look.framed) return framed(control, parent);
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(geometry::wraps(control));
    label->setAlignment(Qt::Alignment(alignmentOf(control) | uprightOf(control)));
    if (control.look.cells != Look::Cells::None) tableGrid::hookCells(label, control);
    if (control.look.alarming) label->setProperty("role", "error");
    if (control.on.doubleClick) makePressable(*label, control);
    const auto restyle = [label, &control] { setLabelText(*label, control); };
    if (control.look.ticks) return ticking(*label, control);
    return {label,
            [restyle](Property property) {
                if (property == Property::Caption) restyle();
            },
            restyle,
            {}};
}

Face emblem(QWidget* parent) {
    auto* widget = new QWidget(parent);
    hookPainting(widget, [](QWidget* target) {
        QPainter painter(target);
        ::emblem::paint(painter, target->rect());
    });
    return {widget, [](Property) {}, [] {}, {}};
}

Face picture(Control& control, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setAlignment(Qt::AlignCenter);
    const auto source = std::make_shared<QPixmap>();
    const auto draw = [label, source] {
        if (source->isNull()) return label->clear();
        // Scaled to the pixels of the screen, so that it stays sharp on a dense one.
        const qreal ratio = label->devicePixelRatioF();
        const QSize size = fitted(source->size(), label->size() * ratio);
        QPixmap scaled = source->scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(ratio);
        label->setPixmap(scaled);
    };
    return {label,
            [draw, source, &control](Property property) {
                if (property != Property::Text) return;
                *source = readPicture(control.text);
                draw();
            },
            draw,
            {}};
}

Face line(Control& control, QWidget* parent) {
    auto* widget = new QWidget(parent);
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    const auto [red, green, blue] = control.look.ink;
    const QColor ink = red < 0 ? QColor() : QColor(red, green, blue);
    hookPainting(widget, [ink](QWidget* target) {
        QPainter(target).fillRect(target->rect(), ink.isValid() ? ink : look::colours().faint);
    });
    // All lines are upright or level; they are never thinner than a pixel.
    const auto place = [widget, &control] {
        const QRect rect = geometry::place(control);
        const int thickness = std::max(1, qRound(15 * geometry::scaleOf(control)));
        widget->setGeometry(rect.x(), rect.y(), std::max(rect.width(), thickness),
                            std::max(rect.height(), thickness));
    };
    return {widget,
            [place](Property property) {
                if (property == Property::Place) place();
            },
            place,
            {}};
}

}  // namespace faces
