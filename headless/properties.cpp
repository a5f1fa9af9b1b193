#include "headless/properties.h"

#include <filesystem>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "forms/windows.h"
#include "platform/numberText.h"

namespace properties {

namespace {

std::string truth(bool value) { return value ? "true" : "false"; }

std::string valueText(const Control& control) {
    return control.kind == Kind::OptionButton ? truth(control.value != 0) : numberText::whole(control.value);
}

std::string textOf(const Control& control) {
    return control.kind == Kind::Picture ? std::filesystem::path(control.text).filename().string()
                                         : control.text;
}

std::string selectedLines(const Control& list) {
    nlohmann::json lines = nlohmann::json::array();
    for (std::size_t i = 0; i < list.selected.size(); ++i) {
        if (list.selected[i]) lines.push_back(i);
    }
    return lines.dump();
}

struct Readable {
    std::set<Kind> kinds;  ///< empty: all kinds
    std::function<std::string(const Control&)> read;
};

std::string number(double value) { return numberText::general(value); }

const std::map<std::string, Readable>& readables() {
    using enum Kind;
    using C = const Control&;
    static const std::map<std::string, Readable> table{
        {"caption", {{Form, Frame, Label, Button, TickBox, OptionButton}, [](C c) { return c.caption; }}},
        {"text", {{TextBox, ComboBox, Picture}, textOf}},
        {"value", {{TickBox, OptionButton, ScrollBar, TabControl}, valueText}},
        {"min", {{ScrollBar}, [](C c) { return numberText::whole(c.min); }}},
        {"max", {{ScrollBar}, [](C c) { return numberText::whole(c.max); }}},
        {"enabled", {{}, [](C c) { return truth(c.enabled); }}},
        {"visible", {{}, [](C c) { return truth(c.visible); }}},
        {"focus", {{}, [](C c) { return truth(windows::hasFocus(c)); }}},
        {"items", {{ListBox, ComboBox, TabControl}, [](C c) { return nlohmann::json(c.items).dump(); }}},
        {"selected", {{ListBox}, selectedLines}},
        {"selStart", {{TextBox}, [](C c) { return std::to_string(c.selStart); }}},
        {"selLength", {{TextBox}, [](C c) { return std::to_string(c.selLength); }}},
        {"interval", {{Timer}, [](C c) { return numberText::whole(c.interval); }}},
        {"columns", {{Chart}, [](C c) { return nlohmann::json(c.columns).dump(); }}},
        {"left", {{}, [](C c) { return number(c.box.left); }}},
        {"top", {{}, [](C c) { return number(c.box.top); }}},
        {"width", {{}, [](C c) { return number(c.box.width); }}},
        {"height", {{}, [](C c) { return number(c.box.height); }}},
    };
    return table;
}

}  // namespace

std::optional<std::string> read(const Control& control, const std::string& property) {
    const auto found = readables().find(property);
    if (found == readables().end()) return std::nullopt;
    const Readable& readable = found->second;
    if (!readable.kinds.empty() && !readable.kinds.contains(control.kind)) return std::nullopt;
    return readable.read(control);
}

std::string onOneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        switch (c) {
            case '\n': line += "\\n"; break;
            case '\r': line += "\\r"; break;
            case '\\': line += "\\\\"; break;
            default: line += c;
        }
    }
    return line;
}

}  // namespace properties
