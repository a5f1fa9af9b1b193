// The picture of a person on a page: shown, chosen as a file or dropped. A file that is no picture of the
// program is refused in words.
#pragma once

#include <QIcon>
#include <QWidget>
#include <functional>
#include <optional>

#include "study/book.h"

namespace portrait {

struct Portrait {
    QWidget* widget;
    QWidget* field;  ///< takes the focus
    std::function<void()> refresh;
    /// Takes the file as the person's picture; what is against it is told in a box.
    std::function<void(const QString& file)> take;
};

/// `person` is the row of tblPatients that is shown, if any.
Portrait make(const std::function<std::optional<int>()>& person);

/// Gives a person a picture of nobody in particular, until there is one: without a picture it could not come.
void putNobody(book::Book& book, int person);

/// The person's picture small, for a list; empty where there is none that can be read.
QIcon small(int person);

}  // namespace portrait
