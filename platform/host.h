// What differs between the desktop and the headless program, as one record of functions. The logic reaches
// windows' waiting, message boxes, time, files and the end of the program only through it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

enum class Buttons { Ok, YesNo };
enum class Icon { None, Question };
enum class Answer { Ok, Yes, No };

struct MessageBox {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
};

struct Host {
    /// Lets events come in until `open` gives false: the wait of a modal form.
    std::function<void(const std::function<bool()>& open)> waitWhile;
    /// Shows the box and returns when a button is pressed. Events of timers go on meanwhile.
    std::function<Answer(const MessageBox&)> messageBox;
    /// Gives way to waiting events once.
    std::function<void()> yield;
    /// Milliseconds of a monotonic counter; wraps at 32 bits.
    std::function<std::uint32_t()> milliseconds;
    /// Calendar date, yyyy-mm-dd, and time of day, hh:mm:ss.
    std::function<std::string()> today;
    std::function<std::string()> timeOfDay;
    /// The folder in which the program, `data` and `Patients` stand.
    std::function<std::string()> programFolder;
    /// Faults with File not found or Invalid picture.
    std::function<void(const std::string& path)> checkPicture;
    /// Ends the program now. Does not return.
    std::function<void(int status)> endProgram;
};

/// The host in use. Each program fills it before it starts the run.
Host& host();

/// Shows a message box with an OK button.
void tell(const std::string& text, const std::string& title = {});

/// Shows a message box with Yes and No; true for Yes.
bool ask(const std::string& text, const std::string& title = {}, Icon icon = Icon::None);

/// Ends the program now, whatever the host's function does.
[[noreturn]] void endProgram(int status = 0);
