#pragma once
/// \file
/// A value that carries its type, as session files hold it.

#include <cstdint>
#include <string>
#include <variant>

#include "core/types.h"

namespace marvolin {

/// A truth value of a file; a type of its own, to be distinct from an Integer.
struct TaggedBoolean {
    Boolean Value = False;
    friend bool operator==(const TaggedBoolean&, const TaggedBoolean&) = default;
};

/// Integer (code 2), Long (3), Double (5), string (8) or Boolean (11).
using TaggedValue = std::variant<std::int16_t, std::int32_t, double, std::string, TaggedBoolean>;

/// The value as an Integer: numbers rounded, texts read as a number. Raises `OverflowError` when it does not fit, and
/// "Type mismatch" (13) for a text that is no number.
std::int16_t AsInteger(const TaggedValue& value);
/// The value as a number; "Type mismatch" (13) for a text that is none.
double AsNumber(const TaggedValue& value);
/// The value as a text, numbers in their plain form.
std::string AsText(const TaggedValue& value);
/// True for any number but 0; false for a text.
bool AsTruth(const TaggedValue& value);

}  // namespace marvolin
