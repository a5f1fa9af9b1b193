// The study window on an offscreen desk, for tests that use it as a person does.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QTreeWidget>
#include <string>

#include "study/book.h"
#include "tests/temporaryStudy.h"

namespace studioDesk {

/// Builds the window once for all tests of the program, with settings and drafts of their own.
QMainWindow& lay();

/// A study whose folder of patients is its own too, and so can be saved.
struct OwnStudy : TemporaryStudy {
    OwnStudy();
};

void open(const TemporaryStudy& study);

/// A copy of what the window holds, to compare with later.
book::Book bookNow();

/// Chooses what the tree lists under this name, and there the tab.
void go(const QString& entry, const QString& tab = {});

/// An entry of the menus, by the beginning of its text.
QAction& action(const QString& text);

template <class Widget>
Widget* named(const QString& name) {
    for (Widget* widget : lay().findChildren<Widget*>()) {
        if (widget->isVisible() && widget->accessibleName() == name) return widget;
    }
    return nullptr;
}

/// On the left, what the study consists of.
QTreeWidget& tree();

/// Files of the study with what tells that one was written.
std::string printOf(const TemporaryStudy& study);

}  // namespace studioDesk
