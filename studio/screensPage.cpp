#include "studio/screensPage.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>
#include <memory>
#include <utility>
#include <vector>

#include "studio/previews.h"
#include "studio/workspace.h"

namespace screensPage {

namespace {

constexpr QSize small(296, 222);

QListWidget* makeList() {
    auto* const list = new QListWidget;
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setIconSize(small);
    list->setSpacing(12);
    list->setAccessibleName("Screens of the subject; Return shows one large");
    return list;
}

/// The picture in the middle of a field of one size, so that titles stand in a row.
QPixmap framed(const QImage& picture, double ratio) {
    QPixmap pixmap =
        QPixmap::fromImage(picture.scaled(small * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace

Page make(const std::function<std::string()>& scenario) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const text = new QLabel;
    auto* const list = makeList();
    const auto pictures = std::make_shared<std::vector<QImage>>();
    text->setWordWrap(true);
    text->setTextFormat(Qt::PlainText);
    column->addWidget(text);
    column->addWidget(list, 1);
    const auto open = [=](const QListWidgetItem* item) {
        const auto at = static_cast<std::size_t>(list->row(item));
        if (at < pictures->size()) previews::enlarge(whole, item->text(), (*pictures)[at]);
    };
    QObject::connect(list, &QListWidget::itemActivated, whole, open);
    QObject::connect(list, &QListWidget::itemClicked, whole, open);
    // The old pictures stay until the first new one comes: less flickers.
    const auto stale = std::make_shared<bool>(true);
    const auto begin = [=] {
        if (!std::exchange(*stale, false)) return;
        list->clear();
        pictures->clear();
    };
    const previews::Listener listener{
        [=] {
            text->setText("The screens are drawn anew…");
            *stale = true;
        },
        [=](const QString& title, const QImage& picture) {
            begin();
            pictures->push_back(picture);
            auto* const item =
                new QListWidgetItem(QIcon(framed(picture, list->devicePixelRatioF())), title, list);
            item->setToolTip("Press to see it large");
        },
        [=](const QString& problem) {
            begin();
            text->setText(problem.isEmpty()
                              ? "A first patient as the real program shows it, played through in a moment. "
                                "Press a picture to see it large."
                              : "The scenario cannot be played to its end. The program says:\n" + problem);
        }};
    const auto wish = [=]() -> std::optional<previews::Wish> {
        if (!workspace::isOpen() || scenario().empty()) return {};
        return previews::Wish{{scenario()}};
    };
    const previews::Refresh refresh = previews::make(whole, wish, listener);
    return {whole, refresh, [](const check::Finding&) { return false; }};
}

}  // namespace screensPage
