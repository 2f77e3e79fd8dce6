#include "window/editor/scintilla/completion.h"

#include <Qsci/qsciscintilla.h>

#include <QGuiApplication>
#include <algorithm>

#include "window/editor/scintilla/call_text.h"
#include "window/editor/scintilla/lua_look.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr std::string_view kTable = "marvolin.";
constexpr std::size_t kTipWidth = 76;  // characters
constexpr int kMostRows = 12;

bool IsEvent(const ScriptWord& word) { return !word.Name.starts_with(kTable); }

/// What follows from `words`, in their order, separated by blanks; a function without the name of its table.
std::string Following(const std::vector<ScriptWord>& words, const std::string& begun, bool events) {
    std::string list;
    for (const ScriptWord& word : words) {
        if (IsEvent(word) != events || !word.Name.starts_with(begun) || word.Name == begun) continue;
        list.append(list.empty() ? "" : " ").append(events ? word.Name : word.Name.substr(kTable.size()));
    }
    return list;
}

}  // namespace

Completion::Completion(QsciScintilla& view, std::vector<ScriptWord> words) : view_(view), words_(std::move(words)) {
    std::sort(words_.begin(), words_.end(), [](const auto& a, const auto& b) { return a.Name < b.Name; });
}

void Completion::SetInks(const QFont& font) {
    using S = QsciScintillaBase;
    constexpr unsigned long kStyle = S::STYLE_CALLTIP;
    view_.SendScintilla(S::SCI_STYLESETFONT, kStyle, font.family().toUtf8().constData());
    view_.SendScintilla(S::SCI_STYLESETSIZEFRACTIONAL, kStyle, static_cast<long>(font.pointSizeF() * 95));
    view_.SendScintilla(S::SCI_CALLTIPUSESTYLE, 0UL);
    view_.SendScintilla(S::SCI_STYLESETFORE, kStyle, theme::kText);
    view_.SendScintilla(S::SCI_STYLESETBACK, kStyle, theme::kRaised);
    view_.SendScintilla(S::SCI_CALLTIPSETFOREHLT, theme::kAccent);
    view_.SendScintilla(S::SCI_AUTOCSETMAXHEIGHT, kMostRows);
    // The bracket of a call takes the word that is chosen.
    view_.SendScintilla(S::SCI_AUTOCSETFILLUPS, "(");
}

std::string Completion::LineToCaret() const {
    const long at = view_.SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS);
    const long line = view_.SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION, at);
    const long begin = view_.SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line);
    // A line that begins within a long text or comment holds no code.
    const long style = view_.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, begin);
    if (at == begin || style == LuaLook::Comment || style == LuaLook::LiteralString) return "";
    QByteArray line8 = view_.bytes(static_cast<int>(begin), static_cast<int>(at));
    return line8.toStdString().substr(0, static_cast<std::size_t>(at - begin));
}

void Completion::Typed() {
    const std::string line = LineToCaret();
    const LineEnd end = ReadLine(line);
    if (end.InComment) return Close();
    if (!end.InText) List(line);
    if (view_.SendScintilla(QsciScintillaBase::SCI_AUTOCACTIVE) == 0) Tip(line);
}

void Completion::Close() {
    view_.SendScintilla(QsciScintillaBase::SCI_AUTOCCANCEL);
    view_.SendScintilla(QsciScintillaBase::SCI_CALLTIPCANCEL);
    shown_ = nullptr;
}

// The library puts the list on the screen that the beginning of the word is on, or the caret where it has scrolled the
// text to make room, and ends the program where there is none: a window can lie half outside of all.
bool Completion::ListIsOnAScreen(std::size_t entered) const {
    using S = QsciScintillaBase;
    const long caret = view_.SendScintilla(S::SCI_GETCURRENTPOS);
    const auto x = [&](long at) { return static_cast<int>(view_.SendScintilla(S::SCI_POINTXFROMPOSITION, 0UL, at)); };
    const int y = static_cast<int>(view_.SendScintilla(S::SCI_POINTYFROMPOSITION, 0UL, caret));
    const auto there = [&](int place) {
        return QGuiApplication::screenAt(view_.viewport()->mapToGlobal(QPoint(place, y))) != nullptr;
    };
    // A list is narrower than half of the view, so it is not scrolled further than to the middle.
    return there(x(caret)) && there(std::min(x(caret - static_cast<long>(entered)), view_.viewport()->width() / 2));
}

// A list that is open follows what is typed by itself.
void Completion::List(const std::string& line) {
    if (view_.SendScintilla(QsciScintillaBase::SCI_AUTOCACTIVE) != 0) return;
    const std::string word = WordAtEnd(line);
    const bool events = !word.empty() && EndsInDefinition(line);
    if (!events && !word.starts_with(kTable)) return;
    const std::string list = Following(words_, word, events);
    const std::size_t entered = events ? word.size() : word.size() - kTable.size();
    if (list.empty() || !ListIsOnAScreen(entered)) return;
    view_.SendScintilla(QsciScintillaBase::SCI_AUTOCSHOW, static_cast<unsigned long>(entered), list.c_str());
}

const ScriptWord* Completion::Named(const std::string& name, bool isEvent) const {
    const auto found = std::find_if(words_.begin(), words_.end(), [&](const ScriptWord& word) {
        return word.Name == name && IsEvent(word) == isEvent;
    });
    return found == words_.end() ? nullptr : &*found;
}

void Completion::Tip(const std::string& line) {
    const LineEnd end = ReadLine(line);
    const ScriptWord* word = Named(end.Name, end.Defined);
    const bool open = view_.SendScintilla(QsciScintillaBase::SCI_CALLTIPACTIVE) != 0;
    if (word == nullptr) {
        if (open) view_.SendScintilla(QsciScintillaBase::SCI_CALLTIPCANCEL);
        shown_ = nullptr;
        return;
    }
    if (!open || shown_ != word) {
        const long caret = view_.SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS);
        const long at = caret - static_cast<long>(line.size()) + static_cast<long>(end.NameAt);
        const std::string text = word->Signature + "\n" + Broken(word->Text, kTipWidth);
        view_.SendScintilla(QsciScintillaBase::SCI_CALLTIPSHOW, static_cast<unsigned long>(at), text.c_str());
        shown_ = word;
    }
    const auto [from, to] = ArgumentPlace(word->Signature, end.Argument);
    view_.SendScintilla(QsciScintillaBase::SCI_CALLTIPSETHLT, static_cast<unsigned long>(from), static_cast<long>(to));
}

}  // namespace marvolin
