// From twips to pixels: each window has one scale, and texts that would not fit their place at it are set
// a little smaller.
#pragma once

#include <QFont>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>
#include <functional>

#include "forms/control.h"

namespace geometry {

/// Height of the tabs above the pages of a tab control, twips.
constexpr float tabBarHeight = 420;

/// Pixels per twip of the window that the control stands in.
double scaleOf(const Control& control);
void setScale(const Control& form, double pixelsPerTwip);

/// Where a form's content begins in its window: it stands in the middle of what the window leaves over.
void setOrigin(const Control& form, QPoint origin);

/// The control's place in its container's widget, pixels.
QRect place(const Control& control);

/// A label of two lines or more wraps at words.
bool wraps(const Control& label);

/// The largest size up to that of the font at which it fits; the least that is read if it never does.
QFont fitted(const QFont& wanted, const std::function<bool(const QFont&)>& fits);

/// Whether the text in this font has room. Flags as for drawing texts.
bool hasRoom(const QFont& font, const QString& text, QSize room, int flags);

/// The largest size up to that of the font at which the text fits into `room`.
QFont fitted(const QFont& wanted, const QString& text, QSize room, int flags);

/// The text as far as it goes into `width` pixels in the widget's font. A text that is cut ends in an
/// ellipsis, and the widget tells the whole as its tool tip.
QString cut(QWidget& widget, const QString& text, int width);

/// The text with a line break at the blank nearest its middle, if it is wider than `width`.
QString brokenInTwo(const QString& text, const QFont& font, int width);

}  // namespace geometry
