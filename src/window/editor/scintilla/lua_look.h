#pragma once

#include <Qsci/qscilexerlua.h>

#include <string>
#include <vector>

#include "scripting/script_words.h"

namespace marvolin {

/// The ground of a line that is marked as wrong, and that of what is selected.
inline const QColor kWrongGround{0x4a, 0x20, 0x20};
inline const QColor kSelectedGround{0x3d, 0x31, 0x15};

/// The colours of a script's text on the program's dark ground. Functions of the API stand out only when they exist, so
/// a wrong name is seen.
class LuaLook : public QsciLexerLua {
public:
    /// `font` has a size in points.
    LuaLook(QObject* parent, const QFont& font, const std::vector<ScriptWord>& words);
    const char* keywords(int set) const override;

private:
    std::string api_;
    std::string events_;
};

}  // namespace marvolin
