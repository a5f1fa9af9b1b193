#include "qt/radioSpeech.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QRadioButton>

#include "qt/edge.h"

namespace radioSpeech {

namespace {

class Speech : public QAccessibleWidget {
public:
    explicit Speech(QRadioButton* button) : QAccessibleWidget(button, QAccessible::RadioButton) {}

    [[nodiscard]] QString text(QAccessible::Text what) const override {
        const QString set = QAccessibleWidget::text(what);
        return set.isEmpty() && what == QAccessible::Name ? button().text() : set;
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button().isChecked();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& action) override {
        edge::guard([&] {
            if (action == pressAction()) return button().click();
            QAccessibleWidget::doAction(action);
        });
    }

private:
    [[nodiscard]] QRadioButton& button() const { return *static_cast<QRadioButton*>(widget()); }
};

QAccessibleInterface* speechFor(const QString& /*className*/, QObject* object) {
    auto* button = qobject_cast<QRadioButton*>(object);
    return button == nullptr ? nullptr : new Speech(button);
}

}  // namespace

void begin() { QAccessible::installFactory(speechFor); }

}  // namespace radioSpeech
