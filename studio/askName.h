// Asks for a name that nothing of its kind has yet.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <string>

namespace askName {

struct Question {
    QString title;
    QString label;
    std::string offered;
    std::string own = {};  ///< a name that may stay, where something is renamed
};

/// Asks until nobody has the name, or gives up; empty then.
std::string ask(QWidget* parent, const Question& question,
                const std::function<bool(const std::string&)>& isTaken);

}  // namespace askName
