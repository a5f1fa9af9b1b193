#include "headless/scriptValue.h"

#include "platform/numberText.h"

namespace scriptValue {

namespace {

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

}  // namespace

std::string textOf(const ScriptValue& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_boolean()) return value.get<bool>() ? "true" : "false";
    if (value.is_number_float()) return numberText::general(value.get<double>());
    return value.dump(-1, ' ', false, ScriptValue::error_handler_t::replace);
}

std::string printed(const ScriptValue& value) {
    return value.is_string() ? onOneLine(value.get<std::string>()) : textOf(value);
}

}  // namespace scriptValue
