// The persons of the roster in the order of the table, and what can be done with each as a whole.
#pragma once

#include <QListWidget>
#include <functional>
#include <optional>

namespace rosterList {

/// The list with its buttons. `name` leads to where the chosen person's name is typed.
QWidget* make(QListWidget& list, const std::function<void()>& name);

void refresh(QListWidget& list);

/// The row of tblPatients that is chosen, if any.
std::optional<int> chosen(const QListWidget& list);

}  // namespace rosterList
