// The first page: a new study of the sample or an empty one, a study that is there, and those opened last.
#pragma once

#include <QString>

#include "studio/page.h"

namespace startPage {

struct Doors {
    std::function<void(bool ofSample)> make;
    std::function<void()> choose;  ///< by a dialog
    std::function<void(const QString& folder)> open;
};

Page make(const Doors& doors);

/// Enters a study among those opened last.
void remember(const QString& folder);

}  // namespace startPage
