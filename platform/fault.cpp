#include "platform/fault.h"

#include <fmt/format.h>

#include <utility>

namespace {

std::string_view standardText(FaultNumber number) {
    switch (number) {
        case FaultNumber::InvalidCall: return "Invalid procedure call or argument";
        case FaultNumber::Overflow: return "Overflow";
        case FaultNumber::SubscriptOutOfRange: return "Subscript out of range";
        case FaultNumber::DivisionByZero: return "Division by zero";
        case FaultNumber::TypeMismatch: return "Type mismatch";
        case FaultNumber::FileNotFound: return "File not found";
        case FaultNumber::InvalidUseOfNull: return "Invalid use of Null";
        case FaultNumber::InvalidPropertyValue: return "Invalid property value";
        case FaultNumber::InvalidPicture: return "Invalid picture";
        case FaultNumber::NoCurrentRecord: return "No current record";
        case FaultNumber::ItemNotFound: return "Item not found in this collection";
    }
    return "Unknown fault";
}

}  // namespace

Fault::Fault(int itsNumber, std::string itsText)
    : number(itsNumber),
      text(std::move(itsText)),
      report(fmt::format("Run-time error '{}':\n{}", number, text)) {}

void raiseFault(FaultNumber number, std::string_view detail) {
    const std::string_view text = standardText(number);
    throw Fault{static_cast<int>(number),
                detail.empty() ? std::string(text) : fmt::format("{}: {}", text, detail)};
}
