#include "core/files/name_order.h"

#include <algorithm>
#include <cstddef>

namespace marvolin {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int Folded(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte;
}

std::string_view DigitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return text.substr(at, end - at);
}

std::string_view WithoutZeros(std::string_view digits) {
    const auto first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? std::string_view() : digits.substr(first);
}

}  // namespace

bool NameBefore(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (IsDigit(a[i]) && IsDigit(b[j])) {
            const std::string_view runA = DigitsAt(a, i);
            const std::string_view runB = DigitsAt(b, j);
            const std::string_view numberA = WithoutZeros(runA);
            const std::string_view numberB = WithoutZeros(runB);
            if (numberA.size() != numberB.size()) return numberA.size() < numberB.size();
            if (numberA != numberB) return numberA < numberB;
            i += runA.size();
            j += runB.size();
        } else {
            if (Folded(a[i]) != Folded(b[j])) return Folded(a[i]) < Folded(b[j]);
            ++i;
            ++j;
        }
    }
    const std::size_t restA = a.size() - i;
    const std::size_t restB = b.size() - j;
    return restA != restB ? restA < restB : a < b;
}

bool EndsInIgnoringCase(std::string_view name, std::string_view ending) {
    return name.size() >= ending.size() && SameIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Folded(x) == Folded(y); });
}

}  // namespace marvolin
