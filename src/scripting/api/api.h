#pragma once
/// \file
/// The functions of the instrument that a script can call: what each is called, takes and returns, and what it does.
/// The tables of `api_table.h` are the only source: arguments are checked by them, and the page for players is made
/// from them.

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/session.h"
#include "core/undo/undo_step.h"

namespace marvolin {

/// What an argument may be.
enum class ArgumentKind : std::uint8_t {
    AnyRow,     ///< 0..5, or "A".."D", "Z"
    PlayRow,    ///< 0..4, or "A".."D", "Z"
    LoopTrack,  ///< 0..3, or "A".."D"
    Whole,      ///< a whole number from `Low` to `High`
    Number,     ///< a number from `Low` to `High`
    Flag,       ///< true or false
    Text,
    Choice,  ///< one of `Choices`, which are separated by "|"
    Function,
};

/// An argument of a function.
struct ApiParameter {
    std::string_view Name = {};  ///< "" behind the last one
    ArgumentKind Kind = ArgumentKind::Text;
    double Low = 0;
    double High = 0;
    std::string_view Unit = {};     ///< "" for none
    std::string_view Choices = {};  ///< of `ArgumentKind::Choice`
    bool Optional = false;
};
inline constexpr std::size_t kMostParameters = 4;

constexpr ApiParameter RowArgument() { return {.Name = "row", .Kind = ArgumentKind::AnyRow, .High = 5}; }
constexpr ApiParameter PlayRowArgument() { return {.Name = "row", .Kind = ArgumentKind::PlayRow, .High = 4}; }
constexpr ApiParameter LoopTrackArgument(std::string_view name = "row") {
    return {.Name = name, .Kind = ArgumentKind::LoopTrack, .High = 3};
}
constexpr ApiParameter Whole(std::string_view name, double low, double high, std::string_view unit = "") {
    return {.Name = name, .Kind = ArgumentKind::Whole, .Low = low, .High = high, .Unit = unit};
}
constexpr ApiParameter Number(std::string_view name, double low, double high, std::string_view unit = "") {
    return {.Name = name, .Kind = ArgumentKind::Number, .Low = low, .High = high, .Unit = unit};
}
constexpr ApiParameter Flag(std::string_view name) { return {.Name = name, .Kind = ArgumentKind::Flag}; }
constexpr ApiParameter Text(std::string_view name) { return {.Name = name, .Kind = ArgumentKind::Text}; }
constexpr ApiParameter Choice(std::string_view name, std::string_view choices) {
    return {.Name = name, .Kind = ArgumentKind::Choice, .Choices = choices};
}
constexpr ApiParameter Optional(ApiParameter parameter) {
    parameter.Optional = true;
    return parameter;
}

/// The argument that a script has given.
struct ApiValue {
    bool Given = false;
    double Number = 0;  ///< of a number, a row, a flag (0 or 1), a choice (its place, from 0)
    const char* Text = "";
    std::size_t Length = 0;
};
using ApiValues = std::array<ApiValue, kMostParameters>;

/// What a function returns, up to four values.
struct ApiAnswer {
    enum class Kind : std::uint8_t { Nil, Number, Flag, Text };
    struct Item {
        Kind What = Kind::Nil;
        double Number = 0;
        std::string Text;
    };
    std::array<Item, 4> Items;
    std::size_t Count = 0;
};

/// What a function reports to the script as an error.
class ApiFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the functions need of the engine.
class ApiEngine {
public:
    virtual ~ApiEngine() = default;
    /// Calls the function that is the second argument of the running call, once, after so many milliseconds. False
    /// when too many calls wait already.
    virtual bool After(std::int32_t milliseconds) = 0;
    /// Calls the function that is the first argument of the running call once the script ends, in the place of the one
    /// that was given before.
    virtual void AtEnd() = 0;
    /// Ends the script once the running call has ended.
    virtual void EndScript() = 0;
};

/// A call of a function, while it is carried out.
class ApiCall {
public:
    ApiCall(Session& session, ApiEngine& engine, const ApiValues& values, ApiAnswer& answer)
        : s(session), Engine(engine), values_(values), answer_(answer) {}
    Session& s;
    ApiEngine& Engine;

    bool Given(std::size_t i) const { return values_[i].Given; }
    Row RowAt(std::size_t i) const { return static_cast<Row>(values_[i].Number); }
    std::int16_t ShortAt(std::size_t i) const { return static_cast<std::int16_t>(values_[i].Number); }
    double NumberAt(std::size_t i) const { return values_[i].Number; }
    bool FlagAt(std::size_t i) const { return values_[i].Number != 0; }
    std::string_view TextAt(std::size_t i) const { return {values_[i].Text, values_[i].Length}; }

    void ReturnNothing() { Next().What = ApiAnswer::Kind::Nil; }
    void Return(double number) {
        ApiAnswer::Item& item = Next();
        item.What = ApiAnswer::Kind::Number;
        item.Number = number;
    }
    void ReturnFlag(bool flag) {
        ApiAnswer::Item& item = Next();
        item.What = ApiAnswer::Kind::Flag;
        item.Number = flag ? 1 : 0;
    }
    void ReturnText(std::string_view text) {
        ApiAnswer::Item& item = Next();
        item.What = ApiAnswer::Kind::Text;
        item.Text = text;
    }

private:
    ApiAnswer::Item& Next() { return answer_.Items.at(answer_.Count++); }
    const ApiValues& values_;
    ApiAnswer& answer_;
};

/// How a function is carried out: in the time of the event, or as something slow that is paid for by a rest.
enum class Pace : std::uint8_t { Quick, Slow };

/// A function of the table `marvolin`.
struct ApiFunction {
    std::string_view Name = {};
    std::array<ApiParameter, kMostParameters> Parameters = {};
    std::string_view Returns = {};  ///< "" for nothing
    std::string_view Text = {};     ///< what it does, as whole sentences
    std::string_view Errors = {};   ///< besides those of the arguments; "" for none
    std::string_view Example = {};  ///< a few statements of Lua, which hold on an instrument with samples in A and B
    void (*Act)(ApiCall& call) = nullptr;
    Pace Speed = Pace::Quick;
    std::optional<UndoScope> TakesBack = std::nullopt;  ///< what of a call can be taken back
};

/// The functions of one subject.
struct ApiSubject {
    std::string_view Title;
    std::span<const ApiFunction> Functions;
};

}  // namespace marvolin
