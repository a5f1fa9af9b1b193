// Events of a widget handed to a function, so that no widget needs a class of its own.
#pragma once

#include <QEvent>
#include <QWidget>
#include <functional>

/// Sees every event of the widget before the widget does; true means that it has been dealt with.
using EventSight = std::function<bool(QEvent*)>;
void hookEvents(QObject* object, EventSight sight);

/// Sees every event of every object of the program.
void hookAllEvents(std::function<bool(QObject*, QEvent*)> sight);

/// Paints the widget with `paint` instead of its own painting.
void hookPainting(QWidget* widget, std::function<void(QWidget*)> paint);
