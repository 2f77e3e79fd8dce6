#include "scripting/api/api_arguments.h"

#include <cmath>
#include <limits>

#include "core/routines.h"

namespace marvolin {

namespace {

using Kind = ArgumentKind;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool IsRow(const ApiParameter& parameter) {
    return parameter.Kind == Kind::AnyRow || parameter.Kind == Kind::PlayRow || parameter.Kind == Kind::LoopTrack;
}

/// Row of a letter, in either case; -1 for none.
double RowOfLetter(const ApiGiven& given) {
    if (given.Length != 1) return -1;
    const char letter = given.Text[0] >= 'a' ? static_cast<char>(given.Text[0] - 'a' + 'A') : given.Text[0];
    for (Row row = 0; row <= kSelectionRow; ++row) {
        if (RowLetter(row) == letter) return row;
    }
    return -1;
}

std::string Shown(const ApiGiven& given) {
    if (given.What == ApiGiven::Kind::Number) return NumberText(given.Number);
    if (given.What == ApiGiven::Kind::Text && given.Length <= 40) {
        return "\"" + std::string(given.Text, given.Length) + "\"";
    }
    return given.TypeName;
}

[[noreturn]] void Refuse(const ApiParameter& parameter, std::size_t i, const std::string& got) {
    throw ApiFault("argument " + std::to_string(i + 1) + " (" + std::string(parameter.Name) + ") must be " +
                   Wanted(parameter) + ", not " + got);
}

/// The number that an argument stands for; `kNone` when it is none of those wanted.
double NumberOf(const ApiParameter& parameter, const ApiGiven& given) {
    const bool isNumber = given.What == ApiGiven::Kind::Number;
    if (IsRow(parameter) && given.What == ApiGiven::Kind::Text) return RowOfLetter(given);
    if (parameter.Kind == Kind::Flag) return given.What == ApiGiven::Kind::Flag ? given.Number : kNone;
    if (parameter.Kind == Kind::Choice) {
        const bool isText = given.What == ApiGiven::Kind::Text;
        const int choice = isText ? ChoiceOf(parameter.Choices, {given.Text, given.Length}) : -1;
        return choice < 0 ? kNone : choice;
    }
    if (!isNumber) return kNone;
    if (parameter.Kind != Kind::Number && std::floor(given.Number) != given.Number) return kNone;
    return given.Number;
}

ApiValue Checked(const ApiParameter& parameter, std::size_t i, const ApiGiven& given) {
    ApiValue value{true, 0, given.Text, given.Length};
    if (parameter.Kind == Kind::Text || parameter.Kind == Kind::Function) {
        const auto wanted = parameter.Kind == Kind::Text ? ApiGiven::Kind::Text : ApiGiven::Kind::Function;
        if (given.What != wanted) Refuse(parameter, i, Shown(given));
        return value;
    }
    value.Number = NumberOf(parameter, given);
    const bool ranged = parameter.Kind != Kind::Flag && parameter.Kind != Kind::Choice;
    const bool within = !ranged || (value.Number >= parameter.Low && value.Number <= parameter.High);
    if (!within || std::isnan(value.Number)) Refuse(parameter, i, Shown(given));
    return value;
}

std::string Range(const ApiParameter& parameter) {
    return NumberText(parameter.Low) + " to " + NumberText(parameter.High);
}

std::string ChoiceWords(std::string_view choices) {
    std::string words = "\"";
    for (const char c : choices) words += c == '|' ? "\", \"" : std::string(1, c);
    return words + "\"";
}

}  // namespace

ApiValues CheckedValues(const ApiFunction& function, std::span<const ApiGiven> given, std::size_t count) {
    ApiValues values;
    const std::size_t parameters = ParameterCount(function);
    if (count > parameters) {
        throw ApiFault("takes " + std::to_string(parameters) + (parameters == 1 ? " argument" : " arguments") +
                       ", not " + std::to_string(count));
    }
    for (std::size_t i = 0; i < parameters; ++i) {
        const ApiParameter& parameter = function.Parameters[i];
        const bool missing = given[i].What == ApiGiven::Kind::None || given[i].What == ApiGiven::Kind::Nil;
        if (missing && parameter.Optional) continue;
        if (missing) Refuse(parameter, i, "missing");
        values[i] = Checked(parameter, i, given[i]);
    }
    return values;
}

std::string Wanted(const ApiParameter& parameter) {
    const std::string unit = parameter.Unit.empty() ? "" : " " + std::string(parameter.Unit);
    switch (parameter.Kind) {
        case Kind::AnyRow:
            return "a row: 0 to 5, or \"A\" to \"D\", \"Z\"";
        case Kind::PlayRow:
            return "a row: 0 to 4, or \"A\" to \"D\", \"Z\"";
        case Kind::LoopTrack:
            return "a LoopTrack: 0 to 3, or \"A\" to \"D\"";
        case Kind::Whole:
            return "a whole number from " + Range(parameter) + unit;
        case Kind::Number:
            return "a number from " + Range(parameter) + unit;
        case Kind::Flag:
            return "true or false";
        case Kind::Text:
            return "a text";
        case Kind::Choice:
            return "one of " + ChoiceWords(parameter.Choices);
        case Kind::Function:
            return "a function";
    }
    return "";
}

std::size_t ParameterCount(const ApiFunction& function) {
    std::size_t count = 0;
    while (count < function.Parameters.size() && !function.Parameters[count].Name.empty()) ++count;
    return count;
}

std::string SignatureOf(const ApiFunction& function) {
    std::string text = "marvolin." + std::string(function.Name) + "(";
    for (std::size_t i = 0; i < ParameterCount(function); ++i) {
        const ApiParameter& parameter = function.Parameters[i];
        const std::string comma = i > 0 ? ", " : "";
        text +=
            parameter.Optional ? " [" + comma + std::string(parameter.Name) + "]" : comma + std::string(parameter.Name);
    }
    return text + ")";
}

int ChoiceOf(std::string_view choices, std::string_view text) {
    for (int place = 0;; ++place) {
        const std::size_t end = choices.find('|');
        if (choices.substr(0, end) == text) return place;
        if (end == std::string_view::npos) return -1;
        choices.remove_prefix(end + 1);
    }
}

}  // namespace marvolin
