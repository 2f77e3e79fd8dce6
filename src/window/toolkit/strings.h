#pragma once
/// \file
/// Texts of the model in the toolkit's type.

#include <QString>
#include <QStringList>
#include <string_view>

namespace marvolin {

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A list of all texts of a container.
template <typename Texts>
QStringList ToQStrings(const Texts& texts) {
    QStringList strings;
    for (std::string_view text : texts) strings << ToQString(text);
    return strings;
}

}  // namespace marvolin
