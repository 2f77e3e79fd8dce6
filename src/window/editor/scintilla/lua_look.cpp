#include "window/editor/scintilla/lua_look.h"

#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

// What a script has of Lua's library; the rest is in no set, so it has no colour.
constexpr const char* kWords =
    "and break do else elseif end false for function goto if in local nil not or repeat return then true until while";
constexpr const char* kBasic =
    "_G _VERSION assert error getmetatable ipairs next pairs pcall print rawequal rawget rawlen rawset select "
    "setmetatable tonumber tostring type xpcall";
constexpr const char* kLibraries =
    "coroutine.create coroutine.isyieldable coroutine.resume coroutine.running coroutine.status coroutine.wrap "
    "coroutine.yield math.abs math.acos math.asin math.atan math.ceil math.cos math.deg math.exp math.floor math.fmod "
    "math.huge math.log math.max math.maxinteger math.min math.mininteger math.modf math.pi math.rad math.random "
    "math.sin math.sqrt math.tan math.tointeger math.type math.ult string.byte string.char string.find string.format "
    "string.gmatch string.gsub string.len string.lower string.match string.rep string.reverse string.sub string.upper "
    "table.concat table.insert table.move table.pack table.remove table.sort table.unpack utf8.char utf8.charpattern "
    "utf8.codepoint utf8.codes utf8.len utf8.offset";

const QColor kComment{0x9a, 0xa2, 0xad};
const QColor kNumber{0xf2, 0xa6, 0x6b};
const QColor kString{0x8f, 0xd6, 0x9c};
const QColor kLibrary{0x8c, 0xc4, 0xff};
const QColor kEvent{0xd3, 0xa9, 0xff};
const QColor kSign{0xc3, 0xc9, 0xd1};

struct Ink {
    int Style;
    QColor Colour;
};

}  // namespace

LuaLook::LuaLook(QObject* parent, const QFont& font, const std::vector<ScriptWord>& words) : QsciLexerLua(parent) {
    for (const ScriptWord& word : words) {
        std::string& set = word.Name.starts_with("marvolin.") ? api_ : events_;
        set.append(word.Name).append(" ");
    }
    setDefaultPaper(theme::kSunk);
    setDefaultColor(theme::kText);
    setDefaultFont(font);
    setPaper(theme::kSunk);
    setColor(theme::kText);
    setFont(font);
    QFont strong = font;
    strong.setBold(true);
    for (const Ink& ink :
         {Ink{Comment, kComment}, Ink{LineComment, kComment}, Ink{Number, kNumber}, Ink{Keyword, theme::kAccent},
          Ink{String, kString}, Ink{Character, kString}, Ink{LiteralString, kString}, Ink{Operator, kSign},
          Ink{BasicFunctions, kLibrary}, Ink{StringTableMathsFunctions, kLibrary}, Ink{KeywordSet5, kLibrary},
          Ink{KeywordSet6, kEvent}, Ink{Label, kNumber}, Ink{UnclosedString, kString}}) {
        setColor(ink.Colour, ink.Style);
    }
    setFont(strong, KeywordSet5);
    setFont(strong, KeywordSet6);
    setPaper(kWrongGround, UnclosedString);
    for (int style = Default; style <= Label; ++style) setEolFill(false, style);
}

const char* LuaLook::keywords(int set) const {
    switch (set) {
        case 1:
            return kWords;
        case 2:
            return kBasic;
        case 3:
            return kLibraries;
        case 5:
            return api_.c_str();
        case 6:
            return events_.c_str();
        default:
            return nullptr;
    }
}

}  // namespace marvolin
