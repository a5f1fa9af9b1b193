// How the program looks, in one place: fonts, colours for light and dark desktops, and the style sheet.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

#include "forms/control.h"

namespace look {

struct Colours {
    QColor window, card, border, text, faint, accent, onAccent, field, disabledText, hover;
    QColor alarm;  ///< health running out
};

/// Of the scheme in use.
const Colours& colours();

/// Puts style, palette, fonts and style sheet on the application. `dark` chooses the scheme.
void apply(bool dark);

/// Pixels to which a length of one pixel in the sheet has grown with the main window.
void setUnit(double unit);

/// Height of the smallest font, pixels: 11 on the screen.
int leastPixels();

/// A control's font at `scale` pixels per twip.
QFont font(const Look& wanted, double scale);

}  // namespace look
