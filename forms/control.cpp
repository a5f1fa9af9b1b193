#include "forms/control.h"

#include <algorithm>

#include "forms/lineBreaks.h"
#include "platform/fault.h"
#include "platform/text.h"

namespace {

std::vector<Watcher>& watchers() {
    static std::vector<Watcher> list;
    return list;
}

void run(const std::function<void()>& handler) {
    if (handler) handler();
}

/// Stores a plain property that has no event of its own.
template <class T>
void put(Control& control, T& field, const T& value, Property property) {
    if (field == value) return;
    field = value;
    tellWatchers(control, property);
}

void moveScrollBar(Control& bar, Int16 value) {
    if (value < bar.min || value > bar.max) {
        raiseFault(FaultNumber::InvalidPropertyValue, fullName(bar));
    }
    if (bar.value == value) return;
    bar.valueBefore = bar.value;
    bar.value = value;
    tellWatchers(bar, Property::Value);
    run(bar.on.change);
}

/// An index that the list does not have faults with Invalid property value.
std::size_t itemPlace(const Control& list, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.items.size()) {
        raiseFault(FaultNumber::InvalidPropertyValue,
                   fullName(list) + " has no item " + std::to_string(index));
    }
    return static_cast<std::size_t>(index);
}

void keepInRange(Control& bar) {
    tellWatchers(bar, Property::Range);
    const Int16 kept = std::max(bar.min, std::min(bar.value, bar.max));
    if (kept != bar.value) moveScrollBar(bar, kept);
}

/// Of the option buttons in one container at most one is chosen.
void dropSiblings(const Control& chosen) {
    for (Control* other : allControls()) {
        const bool sibling = other->kind == Kind::OptionButton && other->parent == chosen.parent;
        if (sibling && other != &chosen) put<Int16>(*other, other->value, 0, Property::Value);
    }
}

}  // namespace

void watchControls(Watcher watcher) { watchers().push_back(std::move(watcher)); }

void forgetWatchers() { watchers().clear(); }

void tellWatchers(Control& control, Property property) {
    for (const Watcher& watcher : watchers()) watcher(control, property);
}

std::string fullName(const Control& control) {
    if (control.kind == Kind::Form) return control.form;
    const std::string plain = control.form + "." + control.name;
    return control.element < 0 ? plain : plain + "(" + std::to_string(control.element) + ")";
}

void setPlace(Control& control, const Place& at) { put(control, control.place, at, Property::Place); }

void setHeight(Control& control, float height) {
    Place place = control.place;
    place.height = height;
    setPlace(control, place);
}

void setVisible(Control& control, bool visible) { put(control, control.visible, visible, Property::Visible); }

void setEnabled(Control& control, bool enabled) { put(control, control.enabled, enabled, Property::Enabled); }

void setCaption(Control& control, const std::string& caption) {
    put(control, control.caption, caption, Property::Caption);
}

void setInterval(Control& timer, Int32 interval) { put(timer, timer.interval, interval, Property::Interval); }

void setColumn(Control& chart, int column, const std::string& value) {
    put(chart, chart.columns[static_cast<std::size_t>(column)], value, Property::Columns);
}

void setPicture(Control& picture, const std::string& path) {
    put(picture, picture.text, path, Property::Text);
}

void setTextTyped(Control& control, const std::string& text, int cursor) {
    const bool isNew = control.text != text;
    control.text = text;
    control.selStart = cursor;
    control.selLength = 0;
    tellWatchers(control, isNew ? Property::Text : Property::Selection);
    if (isNew) run(control.on.change);
}

void setText(Control& control, const std::string& text) {
    if (control.text != text) setTextTyped(control, text, text::length(text));
}

void select(Control& control, int start, int length) {
    const int whole = text::length(control.text);
    int from = std::clamp(start, 0, whole);
    int to = from + std::clamp(length, 0, whole - from);
    const bool isCursor = to == from;
    if (lineBreaks::isInside(control.text, to)) ++to;
    if (lineBreaks::isInside(control.text, from)) from += isCursor ? 1 : -1;
    control.selStart = from;
    control.selLength = to - from;
    tellWatchers(control, Property::Selection);
}

void selectAll(Control& textBox) { select(textBox, 0, text::length(textBox.text)); }

std::string selectedText(const Control& textBox) {
    return text::mid(textBox.text, textBox.selStart, textBox.selLength);
}

void replaceSelection(Control& control, const std::string& text) {
    const std::string before = text::left(control.text, control.selStart);
    const std::string after = text::mid(control.text, control.selStart + control.selLength);
    setTextTyped(control, before + text + after, control.selStart + text::length(text));
}

void setValue(Control& control, Int16 value) {
    if (control.kind == Kind::ScrollBar) {
        moveScrollBar(control, value);
        return;
    }
    if (control.value == value) return;
    control.value = value;
    tellWatchers(control, Property::Value);
    if (control.kind == Kind::OptionButton && value != 0) dropSiblings(control);
    run(control.on.click);
}

void setMin(Control& scrollBar, Int16 min) {
    if (scrollBar.min == min) return;
    scrollBar.min = min;
    keepInRange(scrollBar);
}

void setMax(Control& scrollBar, Int16 max) {
    if (scrollBar.max == max) return;
    scrollBar.max = max;
    keepInRange(scrollBar);
}

bool isTicked(const Control& control) { return control.value == 1; }

void addItem(Control& control, const std::string& item) {
    control.items.push_back(item);
    control.selected.push_back(false);
    tellWatchers(control, Property::Items);
}

void setItem(Control& control, int index, const std::string& item) {
    put(control, control.items[itemPlace(control, index)], item, Property::Items);
}

void removeItem(Control& control, int index) {
    itemPlace(control, index);
    control.items.erase(control.items.begin() + index);
    control.selected.erase(control.selected.begin() + index);
    tellWatchers(control, Property::Items);
}

void clearItems(Control& control) {
    control.items.clear();
    control.selected.clear();
    tellWatchers(control, Property::Items);
    if (control.kind == Kind::ComboBox) setText(control, {});
}

int findItem(const Control& control, const std::string& text) {
    const auto found = std::find(control.items.begin(), control.items.end(), text);
    return found == control.items.end() ? -1 : static_cast<int>(found - control.items.begin());
}

void setListIndex(Control& comboBox, int index) {
    comboBox.text = comboBox.items[itemPlace(comboBox, index)];
    comboBox.selStart = text::length(comboBox.text);
    comboBox.selLength = 0;
    tellWatchers(comboBox, Property::Text);
    run(comboBox.on.click);
}

void selectItems(Control& list, const std::vector<int>& indexes) {
    std::fill(list.selected.begin(), list.selected.end(), false);
    for (const int index : indexes) list.selected[itemPlace(list, index)] = true;
    tellWatchers(list, Property::Selection);
}

bool isSelected(const Control& list, int index) { return list.selected[itemPlace(list, index)]; }

int firstSelected(const Control& list) {
    const auto found = std::find(list.selected.begin(), list.selected.end(), true);
    return found == list.selected.end() ? -1 : static_cast<int>(found - list.selected.begin());
}
