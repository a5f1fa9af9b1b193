#include "studio/clockFace.h"

#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>
#include <cmath>
#include <numbers>
#include <optional>

#include "platform/dial.h"
#include "platform/numberText.h"
#include "qt/look.h"
#include "studio/workspace.h"
#include "study/book.h"
#include "study/timeLimit.h"

namespace clockFace {

namespace {

constexpr int side = 190;

struct Clock {
    int hour;
    int minute;
    int planned;  ///< hours
    std::optional<int> limit;
};

std::optional<Clock> clockOf(const std::string& scenario) {
    const std::optional<int> row = book::rowOf(workspace::book(), "tblAppDefault", "Setting", scenario);
    if (!row) return {};
    const auto number = [&](const char* column) {
        return numberText::nearestShort(book::sheetOf(workspace::book(), "tblAppDefault").text(*row, column));
    };
    Clock clock{number("StartHour"), number("StartMin"), number("Time") * number("SimRate"), {}};
    if (clock.hour < 0 || clock.hour > dial::hours || clock.minute < 0 ||
        clock.minute >= dial::minutesInHour || clock.planned <= 0)
        return {};
    clock.limit = timeLimit::hoursUntil(clock.hour, clock.planned);
    return clock;
}

/// A point on the dial, for hours that may be fractions.
QPointF at(double hour, double radius) {
    const double angle = hour / dial::hours * 2 * std::numbers::pi;
    return {side / 2.0 + radius * std::sin(angle), side / 2.0 - radius * std::cos(angle)};
}

void hand(QPainter& painter, double hour, const QColor& colour, Qt::PenStyle style) {
    painter.setPen(QPen(colour, 3, style, Qt::RoundCap));
    painter.drawLine(at(hour, 0), at(hour, side * 0.33));
}

QPixmap drawn(const Clock& clock, double ratio) {
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const look::Colours& c = look::colours();
    painter.setPen(QPen(c.border, 2));
    painter.setBrush(c.field);
    painter.drawEllipse(QPointF(side / 2.0, side / 2.0), side * 0.48, side * 0.48);
    painter.setPen(c.faint);
    for (int hour = 1; hour <= dial::hours; ++hour) {
        const QPointF middle = at(hour, side * 0.41);
        painter.drawText(QRectF(middle.x() - 14, middle.y() - 9, 28, 18), Qt::AlignCenter,
                         QString::number(hour));
    }
    const double start = clock.hour + clock.minute / static_cast<double>(dial::minutesInHour);
    hand(painter, start + clock.planned, c.faint, Qt::DotLine);
    if (clock.limit) hand(painter, start + *clock.limit, c.alarm, Qt::SolidLine);
    hand(painter, start, c.accent, Qt::SolidLine);
    return pixmap;
}

QString sentence(const Clock& clock) {
    const QString start = QString::fromStdString(numberText::clockText(clock.hour, clock.minute));
    const QString planned = QString::fromStdString(
        numberText::clockText((clock.hour + clock.planned) % dial::hours, clock.minute));
    const QString plan = QString("Patients come at %1. Planned end: %2, after %3 simulated hours.")
                             .arg(start, planned)
                             .arg(clock.planned);
    if (!clock.limit) return plan + " The time limit never comes.";
    if (*clock.limit == clock.planned) return plan + " The time limit comes then.";
    return plan + QString(" The time limit really comes after %1 hours.").arg(*clock.limit);
}

}  // namespace

Face make() {
    auto* const whole = new QWidget;
    auto* const picture = new QLabel;
    auto* const text = new QLabel;
    auto* const column = new QVBoxLayout(whole);
    picture->setAlignment(Qt::AlignCenter);
    picture->setAccessibleName("Dial of the clock");
    text->setWordWrap(true);
    column->addWidget(picture);
    column->addWidget(text);
    return {
        whole, [=](const std::string& scenario) {
            const std::optional<Clock> clock = clockOf(scenario);
            picture->setVisible(clock.has_value());
            text->setText(clock ? sentence(*clock) : "The clock of this scenario cannot be set like this.");
            if (clock) picture->setPixmap(drawn(*clock, picture->devicePixelRatio()));
            picture->setAccessibleDescription(text->text());
        }};
}

}  // namespace clockFace
