// Run-time faults: the one way in which a broken rule of the machine (an overflow, an index out of range,
// a missing file) stops the program. A fault travels to the edge of the handler that was running and ends
// the program there with exit status 3; nothing in between catches it.
#pragma once

#include <exception>
#include <string>
#include <string_view>

enum class FaultNumber {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    InvalidUseOfNull = 94,
    InvalidPropertyValue = 380,
    InvalidPicture = 481,
    NoCurrentRecord = 3021,
    ItemNotFound = 3265,
};

/// What is thrown. `number` is a FaultNumber, or the engine's own error number for a failed write.
struct Fault : std::exception {
    int number;
    std::string text;
    std::string report;  ///< "Run-time error 'N':", a line break and the text: what the person is shown

    Fault(int itsNumber, std::string itsText);
    [[nodiscard]] const char* what() const noexcept override { return report.c_str(); }
};

constexpr int faultExitStatus = 3;

/// Throws the fault with its standard text; `detail` (a file, a column, a value) follows it after a colon.
[[noreturn]] void raiseFault(FaultNumber number, std::string_view detail = {});
