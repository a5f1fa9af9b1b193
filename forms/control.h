// The controls of the forms as plain records, and the setters of their properties. A setter does what the
// control itself does, no more: it tells whoever watches, and runs the form's handler at once, inside the
// assignment, where the kind of control has an event for the change. Setting what is already there does
// nothing.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/checkedInteger.h"

enum class Kind {
    Form,
    Frame,
    Label,
    Button,
    TextBox,
    TickBox,
    OptionButton,
    ComboBox,
    ListBox,
    ScrollBar,
    TabControl,
    Timer,
    Chart,
    Picture,
    Line
};

/// Place in twips, 15 to a pixel at 96 dots per inch, within the container's client area. A line runs
/// from its left, top to left + width, top + height.
struct Place {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    friend bool operator==(const Place&, const Place&) = default;
};

/// How a control looks: height of its font in twips, weight, and where the text stands in its place.
struct Look {
    enum class Align { Left, Right, Centre };
    enum class Drawing { OfItsKind, HealthTrace, Emblem };
    /// How a text that is made up of blanks and line breaks is cut into the cells of a grid.
    enum class Cells {
        None,
        Lines,   ///< a line is a cell
        Marks,   ///< what stands between blanks, each under the one above it
        Heads,   ///< words that begin every 15 characters, from the second on
        Numbers  ///< 14 blanks between numbers; a word ends the line
    };
    int fontSize = 195;
    bool bold = false;
    bool fixedWidth = false;
    Align align = Align::Left;
    bool primary = false;              ///< the button that leads on
    bool alarming = false;             ///< a label that says what is wrong
    bool framed = false;               ///< a label drawn as a frame around other controls
    bool clips = false;                ///< a text too long for its place is cut and not set smaller
    bool ticks = false;                ///< a label on a card whose text changes many times a second
    bool echoes = false;               ///< a press of the button is seen for a moment
    std::array<int, 3> ink{-1, 0, 0};  ///< lines: red, green and blue, where the theme does not choose
    Drawing drawing = Drawing::OfItsKind;
    int table = 0;              ///< texts of a form with one number are set in one size; 0 is no table
    Cells cells = Cells::None;  ///< where they begin at one left edge, texts of a table share their columns
    int rows = 1;               ///< of the grid's cells, over the height of its place
};

/// What the form does. An empty function is an event that nobody handles.
struct Handlers {
    std::function<void()> click;
    std::function<void()> doubleClick;
    std::function<void()> change;
    std::function<void()> timer;
    /// Runs before the key acts; false swallows it. 8 is Backspace, 13 Enter.
    std::function<bool(int code)> key;
    /// A form's window button. A form without this handler has no such button.
    std::function<void()> close;
};

/// What window a form is: the main one, the picture of the start, or a dialog over the main one.
enum class WindowKind { Dialog, Main, Splash };

struct Control {
    // Identity, given by the form.
    Kind kind = Kind::Label;
    std::string form;
    std::string name;
    int element = -1;  ///< place in its control array, -1 outside of one
    Control* parent = nullptr;
    int page = -1;                  ///< page of the tab control that is its parent, -1 elsewhere
    const Control* tag = nullptr;   ///< the label that says what this value is
    const Control* head = nullptr;  ///< the head of the column in which it stands
    Look look;
    bool multiLine = false;      ///< text boxes
    bool multiSelect = false;    ///< lists
    bool typedOnly = false;      ///< text boxes that take keys alone, and nothing that is pasted or dropped
    bool readOnly = false;       ///< text boxes that can be selected in and not typed in
    bool comesByItself = false;  ///< comes up under the hands of a person who may be typing
    std::string prompt;          ///< combo boxes: what they are for, seen while they are empty
    int smallChange = 1;         ///< scroll bars
    int largeChange = 1;

    // Properties.
    Place place;
    bool visible = true;
    bool enabled = true;
    std::string caption;
    std::string text;   ///< of text and combo boxes; of a picture the path of its file
    int selStart = 0;   ///< text and combo boxes, in characters
    int selLength = 0;  ///< text and combo boxes, in characters
    std::vector<std::string> items;
    std::vector<bool> selected;  ///< lists: one for each item
    Int16 value;                 ///< tick box 0 or 1, option button 0 or 1, scroll bar, page of a tab control
    Int16 valueBefore;           ///< scroll bars: the value before the last change
    Int16 min;
    Int16 max;
    Int32 interval;                          ///< timers, milliseconds
    std::array<std::string, 2> columns;      ///< charts
    WindowKind window = WindowKind::Dialog;  ///< forms
    Place content;  ///< the main form: the margin at the left, and size of what is used of the client area
    bool closesAnyTime = false;  ///< forms whose window button works behind a modal form too
    bool modal = false;          ///< forms on show
    Control* active = nullptr;   ///< forms: the control that has the focus

    Handlers on;
};

enum class Property {
    Design,
    Place,
    Visible,
    Enabled,
    Caption,
    Text,
    Selection,
    Items,
    Value,
    Range,
    Interval,
    Columns,
    Focus,
    Press  ///< buttons: the person presses, before anything comes of it
};

/// Told of every change after it has happened and before the form's handler runs. Property::Design on a
/// form says that all its controls went back to their design.
using Watcher = std::function<void(Control&, Property)>;

/// Adds a watcher; they are told in the order of their coming.
void watchControls(Watcher watcher);
void tellWatchers(Control& control, Property property);
void forgetWatchers();

/// Every control of every form, in the order of their design.
const std::vector<Control*>& allControls();

/// "frmDiagnosis.hsbBelief(2)": the name by which scripts, tests and tools reach a control.
std::string fullName(const Control& control);

void setPlace(Control& control, const Place& at);
void setHeight(Control& control, float height);
void setVisible(Control& control, bool visible);
void setEnabled(Control& control, bool enabled);
void setCaption(Control& control, const std::string& caption);
void setInterval(Control& timer, Int32 interval);
void setColumn(Control& chart, int column, const std::string& value);
void setPicture(Control& picture, const std::string& path);

/// Text of a text or combo box; runs its change handler. The cursor goes to the end of the text.
void setText(Control& control, const std::string& text);
/// The same as the person does it: with the cursor where the person has it, in characters, which goes there
/// with a text that stays the same too.
void setTextTyped(Control& control, const std::string& text, int cursor);

/// Selection in a text or combo box, in characters, or the cursor without a length. What lies outside the
/// text is cut; a line break that is selected half is selected whole.
void select(Control& control, int start, int length);
void selectAll(Control& textBox);
std::string selectedText(const Control& textBox);
/// Puts `text` in the place of what is selected in a text or combo box, or at the cursor, and the cursor
/// behind it; runs the change handler.
void replaceSelection(Control& control, const std::string& text);

/// Value of a scroll bar (runs the change handler; outside min to max it faults with Invalid property
/// value), of a tick box or option button (runs the click handler; a chosen option button drops its
/// siblings), or page of a tab control.
void setValue(Control& control, Int16 value);

/// Limits of a scroll bar. A value beyond them is moved to the limit, which counts as a change.
void setMin(Control& scrollBar, Int16 min);
void setMax(Control& scrollBar, Int16 max);

bool isTicked(const Control& control);

// Lists and combo boxes.
void addItem(Control& control, const std::string& item);
void setItem(Control& control, int index, const std::string& item);
void removeItem(Control& control, int index);
/// Drops all items, and the text of a combo box with them.
void clearItems(Control& control);
/// Index of the first item equal to `text`, case included; -1 if there is none.
int findItem(const Control& control, const std::string& text);
/// Takes an item of the combo box: its text, and the click handler. The change handler is for typing.
void setListIndex(Control& comboBox, int index);
/// Selects exactly these lines of a list.
void selectItems(Control& list, const std::vector<int>& indexes);
bool isSelected(const Control& list, int index);
/// First selected line, -1 if none is.
int firstSelected(const Control& list);
