// What the subject will see, drawn in the background by tavix-preview on a copy of the study as it is now. A
// change of the study throws the pictures away and begins anew a moment later.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>
#include <functional>

#include "studio/workspace.h"

namespace previews {

struct Wish {
    workspace::Part part;
    bool onlyPatient = false;  ///< no further than the page "Patient"
};

struct Listener {
    std::function<void()> begun;  ///< the pictures on show are no longer true
    std::function<void(const QString& title, const QImage& picture)> drawn;
    std::function<void(const QString& problem)> ended;  ///< nothing where all went well
};

/// Asks anew: `wish` is drawn unless it is the one that was drawn last, of the same study. Without a wish,
/// and while `owner` is not on show, nothing is drawn.
using Refresh = std::function<void()>;
Refresh make(QWidget* owner, const std::function<std::optional<Wish>()>& wish, const Listener& listener);

/// The picture in a window of its own, as large as the screen allows; Escape closes it.
void enlarge(QWidget* parent, const QString& title, const QImage& picture);

}  // namespace previews
