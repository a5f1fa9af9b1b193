#include "headless/properties.h"

#include <filesystem>
#include <map>
#include <set>

#include "forms/windows.h"

namespace properties {

namespace {

ScriptValue valueOf(const Control& control) {
    if (control.kind == Kind::OptionButton) return control.value != 0;
    return control.value.raw;
}

std::string textOf(const Control& control) {
    return control.kind == Kind::Picture ? std::filesystem::path(control.text).filename().string()
                                         : control.text;
}

ScriptValue selectedLines(const Control& list) {
    ScriptValue lines = ScriptValue::array();
    for (std::size_t i = 0; i < list.selected.size(); ++i) {
        if (list.selected[i]) lines.push_back(i);
    }
    return lines;
}

struct Readable {
    std::set<Kind> kinds;  ///< empty: all kinds
    Reader read;
};

const std::map<std::string, Readable>& readables() {
    using enum Kind;
    using C = const Control&;
    static const std::map<std::string, Readable> table{
        {"caption", {{Form, Frame, Label, Button, TickBox, OptionButton}, [](C c) { return c.caption; }}},
        {"text", {{TextBox, ComboBox, Picture}, textOf}},
        {"value", {{TickBox, OptionButton, ScrollBar, TabControl}, valueOf}},
        {"min", {{ScrollBar}, [](C c) { return c.min.raw; }}},
        {"max", {{ScrollBar}, [](C c) { return c.max.raw; }}},
        {"enabled", {{}, [](C c) { return c.enabled; }}},
        {"visible", {{}, [](C c) { return c.visible; }}},
        {"focus", {{}, [](C c) { return windows::hasFocus(c); }}},
        {"items", {{ListBox, ComboBox, TabControl}, [](C c) { return c.items; }}},
        {"selected", {{ListBox}, selectedLines}},
        {"selStart", {{TextBox}, [](C c) { return c.selStart; }}},
        {"selLength", {{TextBox}, [](C c) { return c.selLength; }}},
        {"interval", {{Timer}, [](C c) { return c.interval.raw; }}},
        {"columns", {{Chart}, [](C c) { return c.columns; }}},
        {"left", {{}, [](C c) { return c.place.left; }}},
        {"top", {{}, [](C c) { return c.place.top; }}},
        {"width", {{}, [](C c) { return c.place.width; }}},
        {"height", {{}, [](C c) { return c.place.height; }}},
    };
    return table;
}

}  // namespace

Reader readerOf(Kind kind, const std::string& property) {
    const auto found = readables().find(property);
    if (found == readables().end()) return {};
    const Readable& readable = found->second;
    return readable.kinds.empty() || readable.kinds.contains(kind) ? readable.read : Reader();
}

}  // namespace properties
