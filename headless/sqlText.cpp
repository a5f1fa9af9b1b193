#include "headless/sqlText.h"

#include "forms/person.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "store/layer/database.h"
#include "store/layer/engine.h"

namespace sqlText {

namespace {

std::string field(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

std::string valueText(const engine::Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&value)) return numberText::general(*real);
    if (const auto* text = std::get_if<std::string>(&value)) return field(*text);
    return {};
}

template <class Items, class ToText>
std::string line(const Items& items, ToText toText) {
    std::string result;
    for (std::size_t i = 0; i < items.size(); ++i) result += (i == 0 ? "" : ",") + toText(items[i]);
    return result + "\n";
}

}  // namespace

std::string rows(const std::string& statement) {
    if (text::trim(statement).empty()) throw Refused{"sql needs a statement"};
    try {
        const engine::Database database = engine::open(store::path(), store::password, engine::Access::Read);
        const engine::Rows result = engine::query(*database, statement);
        std::string text = line(result.columns, field);
        for (const auto& row : result.rows) text += line(row, valueText);
        return text;
    } catch (const engine::Error& error) {
        throw Refused{error.text};
    }
}

}  // namespace sqlText
