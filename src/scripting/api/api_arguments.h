#pragma once
/// \file
/// The check of a script's arguments by the table of the API.

#include <array>
#include <cstdint>
#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// An argument as the engine has it.
struct ApiGiven {
    enum class Kind : std::uint8_t { None, Nil, Number, Flag, Text, Function, Other };
    Kind What = Kind::None;
    const char* TypeName = "";
    double Number = 0;
    const char* Text = "";
    std::size_t Length = 0;
};

/// The arguments of a call, checked by its parameters. `count` is how many were given. Raises `ApiFault`, which names
/// the argument that is wrong and what it must be.
ApiValues CheckedValues(const ApiFunction& function, std::span<const ApiGiven> given, std::size_t count);

/// What an argument must be, in words: "a whole number from 0 to 500".
std::string Wanted(const ApiParameter& parameter);

/// How many parameters a function has.
std::size_t ParameterCount(const ApiFunction& function);

/// How a function is called: "marvolin.load(row, path [, play])".
std::string SignatureOf(const ApiFunction& function);

/// Place of `text` in `choices` ("a|b|c"), from 0; -1 when it is none of them.
int ChoiceOf(std::string_view choices, std::string_view text);

}  // namespace marvolin
