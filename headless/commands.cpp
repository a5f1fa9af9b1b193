#include "headless/commands.h"

#include <fmt/format.h>

#include <charconv>
#include <functional>
#include <iostream>
#include <map>

#include "forms/person.h"
#include "forms/registry.h"
#include "forms/windows.h"
#include "headless/commandLine.h"
#include "headless/properties.h"
#include "headless/scriptValue.h"
#include "headless/sqlText.h"
#include "headless/stateFields.h"
#include "platform/numberText.h"
#include "platform/onLeave.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "stage/openBoxes.h"
#include "stage/virtualTime.h"

namespace commands {

namespace {

ActingPerson acting;

/// A `run` under way: what it waits for, and whether that has been seen.
struct Awaited {
    std::function<bool()> holds;
    bool seen = false;
};
std::vector<Awaited*> underWay;

Control& controlNamed(const std::string& name) {
    Control* control = registry::find(name);
    if (control == nullptr) throw Refused{"there is no control " + name};
    return *control;
}

int wholeNumber(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        throw Refused{"\"" + text + "\" is no whole number"};
    return number;
}

int characterCode(const std::string& text) {
    const int code = wholeNumber(text);
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    if (code < 1 || code > 0x10FFFF || surrogate) throw Refused{"\"" + text + "\" is no character code"};
    return code;
}

int milliseconds(const std::string& text) {
    const int duration = wholeNumber(text);
    if (duration < 0) throw Refused{"time does not run backward"};
    return duration;
}

/// A control's property, found once and read as often as it is asked for.
std::function<ScriptValue()> readerOf(const std::string& target) {
    const std::size_t point = target.rfind('.');
    const Control& control = controlNamed(target.substr(0, point));
    if (point == std::string::npos) throw Refused{target + " is a form: which property of it?"};
    properties::Reader read = properties::readerOf(control.kind, target.substr(point + 1));
    if (!read) throw Refused{"there is no property " + target};
    return [&control, read = std::move(read)] { return read(control); };
}

ScriptValue propertyOf(const std::string& target) { return readerOf(target)(); }

ScriptValue fieldOf(const std::string& path) {
    const std::optional<ScriptValue> value = stateFields::read(path);
    if (!value) throw Refused{"there is no field " + path};
    return *value;
}

ScriptValue boxPart(const std::string& target) {
    const openBoxes::OpenBox* open = openBoxes::newest();
    if (open == nullptr) throw Refused{"no message box is on show"};
    return target == "box.text" ? open->box.text : open->box.title;
}

void print(const std::string& text) { std::cout << text << '\n'; }

void printBox() {
    const openBoxes::OpenBox* open = openBoxes::newest();
    if (open == nullptr) {
        print("none");
        return;
    }
    print(scriptValue::textOf({{"title", open->box.title},
                               {"text", open->box.text},
                               {"buttons", openBoxes::buttonsOf(open->box)},
                               {"icon", open->box.icon == Icon::Question ? "question" : "none"}}));
}

void pressAnswer(const std::string& button) {
    const openBoxes::OpenBox* open = openBoxes::newest();
    if (open == nullptr) throw Refused{"no message box is on show"};
    if (!windows::boxInFront()) throw Refused{"the message box stands behind " + windows::topModal()->form};
    const std::vector<std::string> buttons = openBoxes::buttonsOf(open->box);
    if (std::find(buttons.begin(), buttons.end(), button) == buttons.end()) {
        throw Refused{fmt::format("the message box \"{}\" has no button {}", open->box.text, button)};
    }
    acting.answer(*openBoxes::answerNamed(button));
}

/// A text may be written as it is or as `get` prints it, a truth value as a number too.
bool sameValue(const ScriptValue& value, const std::string& wanted) {
    const std::string actual = scriptValue::textOf(value);
    if (actual == wanted || scriptValue::printed(value) == wanted) return true;
    return (actual == "true" && wanted == "1") || (actual == "false" && wanted == "0");
}

void expectValue(const ScriptValue& actual, const CommandLine& line, std::size_t count) {
    if (line.arguments.size() < count) throw Refused{"expect needs a text to compare with"};
    if (sameValue(actual, line.lastOf(count)) || sameValue(actual, line.arguments[count - 1])) return;
    throw Refused{fmt::format("expected \"{}\", found \"{}\"", scriptValue::printed(line.lastOf(count)),
                              scriptValue::printed(actual))};
}

void expectTarget(const CommandLine& line) {
    const std::string& target = line.arguments[0];
    if (target == "state") {
        if (line.arguments.size() < 2) throw Refused{"state needs a field"};
        expectValue(fieldOf(line.arguments[1]), line, 3);
    } else if (target == "box.text" || target == "box.title") {
        expectValue(boxPart(target), line, 2);
    } else {
        expectValue(propertyOf(target), line, 2);
    }
}

void runUntil(const CommandLine& line) {
    if (line.arguments.size() < 5 || line.arguments[1] != "until" || line.arguments[3] != "=") {
        throw Refused{"run MS until CONTROL.PROPERTY = TEXT"};
    }
    const int duration = milliseconds(line.arguments[0]);
    const std::string& target = line.arguments[2];
    const std::string wanted = line.lastOf(5);
    const std::function<ScriptValue()> read = readerOf(target);
    Awaited awaited{[&] { return sameValue(read(), wanted); }};
    if (awaited.holds()) return;
    {
        underWay.push_back(&awaited);
        const OnLeave done([] { underWay.pop_back(); });
        virtualTime::pass(duration, [&] { return awaited.seen || awaited.holds(); });
    }
    if (awaited.seen || awaited.holds()) return;
    throw Refused{fmt::format("{} is \"{}\" and not \"{}\" after {} ms", target, scriptValue::printed(read()),
                              scriptValue::printed(wanted), line.arguments[0])};
}

/// "0.5" or "0.5x4000".
void queueDraw(const std::string& word) {
    constexpr int mostTimes = 1'000'000;
    const std::size_t times = word.find('x');
    const std::string number = word.substr(0, times);
    const int count = times == std::string::npos ? 1 : wholeNumber(word.substr(times + 1));
    const double value = numberText::toNumber(number);
    const bool inRange = value >= 0.0 && static_cast<float>(value) < 1.0F;
    if (!numberText::isNumeric(number) || !inRange || count < 0) {
        throw Refused{"\"" + word + "\" is no draw: 0 up to but not including 1"};
    }
    if (count > mostTimes) throw Refused{fmt::format("at most {} draws at once", mostTimes)};
    randomSource::queueDraws(std::vector<double>(static_cast<std::size_t>(count), value));
}

void draw(const CommandLine& line) {
    if (line.arguments[0] == "clear") {
        randomSource::clearQueue();
        return;
    }
    for (const std::string& word : line.arguments) queueDraw(word);
}

std::vector<int> wholeNumbers(const CommandLine& line, std::size_t from) {
    std::vector<int> numbers;
    for (std::size_t i = from; i < line.arguments.size(); ++i)
        numbers.push_back(wholeNumber(line.arguments[i]));
    return numbers;
}

void writePicture(const std::string& file) {
    if (!acting.picture) throw Refused{"there is no screen to draw"};
    acting.picture(file);
}

/// Another command, which may be refused: that is said, and the script goes on. A try within it would say
/// nothing more, and a line of nothing else would go as deep as it is long.
void tryCommand(const CommandLine& line) {
    const std::string tried = line.lastOf(1);
    if (parseCommand(tried).command == "try") throw Refused{"try try: once is enough"};
    try {
        execute(tried);
    } catch (const Refused& refused) {
        print("refused: " + scriptValue::printed(refused.reason));
    }
}

struct Command {
    std::size_t fewest;  ///< arguments
    const char* form;
    const char* what;
    std::function<void(const CommandLine&)> run;
};

using Line = const CommandLine&;

Control& actedOn(Line line) { return controlNamed(line.arguments[0]); }
int numberAt(Line line, std::size_t place) { return wholeNumber(line.arguments[place]); }

const std::map<std::string, Command>& table() {
    static const std::map<std::string, Command> commands{
        {"click", {1, "CONTROL", "presses it", [](Line l) { acting.press(actedOn(l)); }}},
        {"dblclick", {1, "CONTROL", "presses it twice", [](Line l) { acting.doublePress(actedOn(l)); }}},
        {"type",
         {2, "CONTROL TEXT", "replaces its text, key by key",
          [](Line l) { acting.type(actedOn(l), l.lastOf(2)); }}},
        {"paste",
         {2, "CONTROL TEXT", "replaces its text in one change",
          [](Line l) { acting.paste(actedOn(l), l.lastOf(2)); }}},
        {"key",
         {2, "CONTROL CODE", "presses the key with this character code",
          [](Line l) { acting.key(actedOn(l), characterCode(l.arguments[1])); }}},
        {"choose",
         {2, "CONTROL TEXT", "takes this item of a list or a combo box",
          [](Line l) { acting.choose(actedOn(l), l.lastOf(2)); }}},
        {"slide",
         {2, "CONTROL VALUE", "moves a scroll bar there in one move",
          [](Line l) { acting.slide(actedOn(l), numberAt(l, 1)); }}},
        {"tick", {1, "CONTROL", "ticks a box", [](Line l) { acting.tick(actedOn(l), true); }}},
        {"untick", {1, "CONTROL", "takes its tick away", [](Line l) { acting.tick(actedOn(l), false); }}},
        {"mark",
         {3, "CONTROL START LENGTH", "selects characters of its text, from 0",
          [](Line l) { acting.mark(actedOn(l), numberAt(l, 1), numberAt(l, 2)); }}},
        {"pick",
         {1, "CONTROL LINE...", "selects exactly these lines of a list, from 0",
          [](Line l) { acting.pick(actedOn(l), wholeNumbers(l, 1)); }}},
        {"tab",
         {2, "CONTROL PAGE", "turns to a page, from 0",
          [](Line l) { acting.turnTo(actedOn(l), numberAt(l, 1)); }}},
        {"answer",
         {1, "BUTTON", "presses OK, Yes or No of the newest message box",
          [](Line l) { pressAnswer(l.arguments[0]); }}},
        {"close", {1, "FORM", "closes it by its window button", [](Line l) { acting.close(actedOn(l)); }}},
        {"wait",
         {1, "MS", "lets virtual time pass, in milliseconds",
          [](Line l) { virtualTime::pass(milliseconds(l.arguments[0]), [] { return false; }); }}},
        {"run",
         {1, "MS until CONTROL.PROPERTY = TEXT", "lets time pass until this holds, MS at most", runUntil}},
        {"draw", {1, "R...", "queues random draws: 0.5, or 0.5x40 for forty; clear empties the queue", draw}},
        {"get",
         {1, "CONTROL.PROPERTY", "prints it: caption, text, value, enabled, visible, items...",
          [](Line l) { print(scriptValue::printed(propertyOf(l.arguments[0]))); }}},
        {"state",
         {1, "FIELD", "prints a field of the run state: patients(0).status",
          [](Line l) { print(scriptValue::printed(fieldOf(l.arguments[0]))); }}},
        {"box", {0, "", "prints the newest message box, or none", [](Line) { printBox(); }}},
        {"sql",
         {1, "STATEMENT", "prints the rows of a reading statement",
          [](Line l) { std::cout << sqlText::rows(l.lastOf(1)); }}},
        {"expect",
         {2, "TARGET TEXT", "fails unless it is TEXT: CONTROL.PROPERTY, state FIELD, box.text, box.title",
          expectTarget}},
        {"try", {1, "COMMAND", "carries it out, and prints the reason if it is refused", tryCommand}},
        {"picture",
         {1, "FILE", "draws the screen into a PNG file, where there is one",
          [](Line l) { writePicture(l.arguments[0]); }}},
    };
    return commands;
}

}  // namespace

void setPerson(ActingPerson person) { acting = std::move(person); }

void onWaiting() {
    for (Awaited* awaited : underWay) awaited->seen = awaited->seen || awaited->holds();
}

std::string help() {
    std::string lines;
    for (const auto& [name, command] : table()) {
        lines += fmt::format("  {:<36}  {}\n", name + " " + command.form, command.what);
    }
    return lines;
}

void execute(const std::string& text) {
    if (!text::isUtf8(text)) throw Refused{"the line is no text in UTF-8"};
    const CommandLine line = parseCommand(text);
    if (line.unclosed) throw Refused{"a double quote is not closed"};
    if (line.command.empty()) return;
    const auto found = table().find(line.command);
    if (found == table().end()) throw Refused{"there is no command " + line.command};
    const Command& command = found->second;
    if (line.arguments.size() < command.fewest) throw Refused{line.command + " " + command.form};
    command.run(line);
}

}  // namespace commands
