#include "core/files/tagged_value.h"

#include <cmath>
#include <cstdlib>

#include "core/errors.h"
#include "core/routines.h"

namespace marvolin {

namespace {

double TextNumber(const std::string& text) {
    const std::string trimmed = Trim(text);
    char* end = nullptr;
    const double number = std::strtod(trimmed.c_str(), &end);
    if (trimmed.empty() || end != trimmed.c_str() + trimmed.size()) throw RuntimeError(13, "Type mismatch");
    return number;
}

}  // namespace

std::int16_t AsInteger(const TaggedValue& value) { return ToI2(AsNumber(value)); }

double AsNumber(const TaggedValue& value) {
    if (const auto* integer = std::get_if<std::int16_t>(&value)) return *integer;
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return *whole;
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* truth = std::get_if<TaggedBoolean>(&value)) return truth->Value;
    return TextNumber(std::get<std::string>(value));
}

std::string AsText(const TaggedValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return NumberText(AsNumber(value));
}

bool AsTruth(const TaggedValue& value) {
    if (std::holds_alternative<std::string>(value)) return false;
    return AsNumber(value) != 0;
}

}  // namespace marvolin
