#include "studio/lanes.h"

#include <algorithm>

#include "qt/eventHook.h"

namespace lanes {

namespace {

/// What the margins between the grid and the edge of the page take.
int around(const QScrollArea& area, const QGridLayout& grid) {
    int width = 0;
    for (const QWidget* each = grid.parentWidget(); each != nullptr; each = each->parentWidget()) {
        const QMargins margins = each->layout()->contentsMargins();
        width += margins.left() + margins.right();
        if (each == area.widget()) break;
    }
    return width;
}

/// The least width of so many lanes.
int widthOf(const QGridLayout& grid, const std::vector<QWidget*>& parts, std::size_t lanes) {
    int width = static_cast<int>(lanes - 1) * grid.horizontalSpacing();
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        int widest = 0;
        for (std::size_t i = lane; i < parts.size(); i += lanes)
            widest = std::max({widest, parts[i]->minimumSizeHint().width(), parts[i]->minimumWidth()});
        width += widest;
    }
    return width;
}

void arrange(QGridLayout& grid, const std::vector<QWidget*>& parts, std::size_t lanes, bool even) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        grid.removeWidget(parts[i]);
        grid.addWidget(parts[i], static_cast<int>(i / lanes), static_cast<int>(i % lanes));
        grid.setColumnStretch(static_cast<int>(i), even && i < lanes ? 1 : 0);
    }
}

}  // namespace

void lay(QScrollArea& area, QGridLayout& grid, const std::vector<QWidget*>& parts, bool even) {
    arrange(grid, parts, parts.size(), even);
    hookEvents(area.viewport(), [&area, &grid, parts, even, laid = parts.size()](QEvent* event) mutable {
        if (event->type() != QEvent::Resize) return false;
        const int room = area.viewport()->width() - around(area, grid);
        std::size_t fit = parts.size();
        while (fit > 1 && widthOf(grid, parts, fit) > room) --fit;
        if (fit != laid) arrange(grid, parts, fit, even);
        laid = fit;
        return false;
    });
}

QScrollArea* scrolled(QWidget* inside) {
    auto* const area = new QScrollArea;
    area->setWidget(inside);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // it follows the focus of what stands in it
    return area;
}

}  // namespace lanes
