// Faces of lists, progress charts and the pages.
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QTabBar>
#include <memory>

#include "forms/person.h"
#include "platform/numberText.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"
#include "qt/tableFont.h"

namespace faces {

namespace {

void showLines(QListWidget& list, const Control& control) {
    const Showing showing;
    list.clear();
    for (const std::string& item : control.items) list.addItem(toQt(item));
    constexpr int margin = 24;  // pixels of the frame and a scroll bar
    list.setFont(control.look.fixedWidth ? tableFont::of(control, list.width() - margin)
                                         : look::font(control.look, geometry::scaleOf(control)));
}

void showSelection(QListWidget& list, const Control& control) {
    const Showing showing;
    for (int i = 0; i < list.count(); ++i) list.item(i)->setSelected(isSelected(control, i));
}

std::vector<int> selectedLines(const QListWidget& list) {
    std::vector<int> lines;
    for (int i = 0; i < list.count(); ++i) {
        if (list.item(i)->isSelected()) lines.push_back(i);
    }
    return lines;
}

/// A line that is pressed is picked, also where it is selected already; once for each press.
void hookPicks(QListWidget* list, Control& control, const std::function<void()>& show) {
    const auto endsDoubleClick = hookDoubleClicks(list->viewport(), control);
    const auto picked = std::make_shared<bool>(false);  // since the button went down
    hookEvents(list->viewport(), [picked](QEvent* event) {
        if (event->type() == QEvent::MouseButtonPress) *picked = false;
        return false;
    });
    const auto pick = [list, &control] { person::pick(control, selectedLines(*list)); };
    const auto pickChanged = [pick, picked] {
        *picked = true;
        pick();
    };
    const auto pickPressed = [pick, picked, endsDoubleClick] {
        if (!endsDoubleClick() && !*picked) pick();
    };
    onPerson(list, &QListWidget::itemSelectionChanged, pickChanged, show);
    onPerson(list, &QListWidget::itemClicked, pickPressed, show);
}

/// The toolkit paints a bar at once for each of its numbers; all of them, and both columns of a tick, are one
/// change.
void showProgress(QProgressBar& bar, const Control& control) {
    bar.setUpdatesEnabled(false);
    const int gone = static_cast<int>(numberText::toNumber(control.columns[0]));
    const int left = static_cast<int>(numberText::toNumber(control.columns[1]));
    const int whole = std::max(1, gone + left);
    bar.setRange(0, whole);
    bar.setValue(std::min(gone, whole));
    bar.setFormat(QString("%1 / %2").arg(gone).arg(std::max(gone + left, 0)));
    bar.setUpdatesEnabled(true);
}

struct Pages {
    QTabBar* bar;
    std::vector<QWidget*> pages;
};

void turnTo(const Pages& pages, int wanted) {
    const Showing showing;
    pages.bar->setCurrentIndex(wanted);
    for (std::size_t i = 0; i < pages.pages.size(); ++i)
        pages.pages[i]->setVisible(static_cast<int>(i) == wanted);
}

void layPages(const Pages& pages, const QWidget& whole, double scale) {
    const int top = qRound(geometry::tabBarHeight * scale);
    pages.bar->setGeometry(0, 0, whole.width(), top + 1);
    pages.bar->raise();
    for (QWidget* page : pages.pages) page->setGeometry(0, top, whole.width(), whole.height() - top);
}

}  // namespace

Face listBox(Control& control, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setSelectionMode(control.multiSelect ? QAbstractItemView::ExtendedSelection
                                               : QAbstractItemView::SingleSelection);
    list->setWordWrap(!control.look.fixedWidth);
    list->setHorizontalScrollBarPolicy(control.look.fixedWidth ? Qt::ScrollBarAsNeeded
                                                               : Qt::ScrollBarAlwaysOff);
    hookPicks(list, control, [list, &control] { showSelection(*list, control); });
    hookKeys(list, control);
    const auto fill = [list, &control] {
        showLines(*list, control);
        showSelection(*list, control);
    };
    return {list,
            [list, &control, fill](Property property) {
                if (property == Property::Items) fill();
                if (property == Property::Selection) showSelection(*list, control);
            },
            fill,
            {}};
}

Face chart(Control& control, QWidget* parent) {
    auto* bar = new QProgressBar(parent);
    const auto show = [bar, &control] { showProgress(*bar, control); };
    return {bar,
            [show](Property property) {
                if (property == Property::Columns) show();
            },
            [bar, &control, show] {
                bar->setFont(look::font({165}, geometry::scaleOf(control)));
                show();
            },
            {}};
}

Face tabs(Control& control, QWidget* parent) {
    auto* whole = new QWidget(parent);
    Pages pages{new QTabBar(whole), {}};
    pages.bar->setDrawBase(false);
    pages.bar->setExpanding(false);
    pages.bar->setUsesScrollButtons(false);
    hookEvents(pages.bar, [](QEvent* event) { return event->type() == QEvent::Wheel; });
    whole->setFocusProxy(pages.bar);
    for (const std::string& caption : control.items) {
        pages.bar->addTab(toQt(caption));
        auto* page = new QWidget(whole);
        page->setProperty("role", "page");
        page->setAttribute(Qt::WA_StyledBackground);
        page->lower();
        pages.pages.push_back(page);
    }
    const auto turn = [pages, &control] { turnTo(pages, control.value.toInt()); };
    // The first for the arrow keys, the second also for a press on the page that is up.
    const auto take = [&control](int page) { person::turnTo(control, page); };
    onPerson(pages.bar, &QTabBar::currentChanged, take, turn);
    onPerson(pages.bar, &QTabBar::tabBarClicked, take, turn);
    return {whole,
            [turn](Property property) {
                if (property == Property::Value) turn();
            },
            [pages, whole, turn, &control] {
                const double scale = geometry::scaleOf(control);
                pages.bar->setFont(look::font({210, true}, scale));
                layPages(pages, *whole, scale);
                turn();
            },
            [pages](int page) { return pages.pages.at(static_cast<std::size_t>(page)); }};
}

}  // namespace faces
