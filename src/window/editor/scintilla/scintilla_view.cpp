#include "window/editor/scintilla/scintilla_view.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QScreen>
#include <algorithm>

#include "window/editor/scintilla/lua_look.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kNumbers = 0;  // margins
constexpr int kMarks = 1;
constexpr int kWrongLine = 1;  // markers
constexpr int kWrongSign = 2;
constexpr int kTab = 4;  // blanks
constexpr double kPointsAnInch = 72;
const QColor kCaretLine{0x2e, 0x32, 0x38};
const QColor kNumberInk{0x8b, 0x94, 0xa1};

/// The same font with a size in points, which is all that the library reads.
QFont InPoints(const QWidget& widget, const QFont& font) {
    QFont points = font;
    const int pixels = font.pixelSize() > 0 ? font.pixelSize() : 13;
    points.setPointSizeF(pixels * kPointsAnInch / widget.logicalDpiY());
    points.setFamily(QFontInfo(font).family());
    return points;
}

}  // namespace

ScintillaView::ScintillaView(QWidget* parent, const QFont& font, const std::vector<ScriptWord>& words)
    : QsciScintilla(parent), completion_(*this, words) {
    setUtf8(true);
    setEolMode(EolUnix);
    const QFont points = InPoints(*this, font);
    setLexer(new LuaLook(this, points, words));  // the view owns it
    SetInks(points);
    SetMargins(points);
    setTabWidth(kTab);
    setIndentationsUseTabs(false);
    setAutoIndent(true);
    setBackspaceUnindents(true);
    setBraceMatching(SloppyBraceMatch);
    // Without these there is a bar for 2000 pixels, whatever the text.
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1);
    Connect();
}

// What the library still says while it ends would come to an object that is half gone.
ScintillaView::~ScintillaView() { blockSignals(true); }

void ScintillaView::SetInks(const QFont& font) {
    setFrameShape(QFrame::NoFrame);
    setPaper(theme::kSunk);
    setColor(theme::kText);
    setCaretForegroundColor(theme::kAccent);
    setCaretWidth(2);
    setCaretLineVisible(true);
    setCaretLineBackgroundColor(kCaretLine);
    // A filled line would hide the mark of a wrong one.
    setCaretLineFrameWidth(1);
    setSelectionBackgroundColor(kSelectedGround);
    resetSelectionForegroundColor();
    setMatchedBraceForegroundColor(theme::kAccent);
    setMatchedBraceBackgroundColor(theme::kAmberGround);
    setUnmatchedBraceForegroundColor(theme::kText);
    setUnmatchedBraceBackgroundColor(kWrongGround);
    markerDefine(Background, kWrongLine);
    setMarkerBackgroundColor(kWrongGround, kWrongLine);
    markerDefine(Circle, kWrongSign);
    setMarkerBackgroundColor(theme::kRed, kWrongSign);
    setMarkerForegroundColor(theme::kRed, kWrongSign);
    completion_.SetInks(font);
}

void ScintillaView::SetMargins(const QFont& font) {
    setMarginsFont(font);
    setMarginsForegroundColor(kNumberInk);
    setMarginsBackgroundColor(theme::kWindow);
    setMarginLineNumbers(kNumbers, true);
    setMarginType(kMarks, SymbolMargin);
    setMarginMarkerMask(kMarks, 1 << kWrongSign);
    setMarginWidth(kMarks, 14);
    setMarginWidth(2, 0);
    SendScintilla(SCI_SETMARGINLEFT, 0L, 4L);
    WidenNumbers();
}

void ScintillaView::WidenNumbers() {
    const QString most = QString::number(std::max(lines(), 100));
    setMarginWidth(kNumbers, QString(most.size() + 1, '9'));
}

void ScintillaView::Connect() {
    connect(this, &QsciScintilla::linesChanged, this, [this] { WidenNumbers(); });
    connect(this, &QsciScintilla::textChanged, this, [this] {
        // What was wrong is being mended. The library does not paint away a mark that goes with all text, nor a bracket
        // that has stood beside the caret.
        if (Marked() == Caret().Line) Mark(0);
        viewport()->update();
        if (OnEdit) OnEdit();
        Tell();
    });
    connect(this, &QsciScintilla::modificationChanged, this, [this] { Tell(); });
    connect(this, &QsciScintilla::cursorPositionChanged, this, [this] { Tell(); });
    connect(this, &QsciScintillaBase::SCN_CHARADDED, this, [this] { completion_.Typed(); });
}

void ScintillaView::Tell() const {
    if (OnChange) OnChange();
}

std::string ScintillaView::Text() const {
    const long length = SendScintilla(SCI_GETLENGTH);
    const auto* text = static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
    return {text, static_cast<std::size_t>(length)};
}

// The toolkit's own call makes room for what lies between the two ends of the last line of a rectangle, and then gets
// all of the rectangle.
std::string ScintillaView::Selected() const {
    std::string text(static_cast<std::size_t>(SendScintilla(SCI_GETSELTEXT)) + 1, '\0');
    SendScintilla(SCI_GETSELTEXT, 0UL, text.data());
    return text.c_str();
}

void ScintillaView::SetText(const std::string& text) {
    completion_.Close();
    markerDeleteAll();
    SendScintilla(SCI_SETUNDOCOLLECTION, 0);
    SendScintilla(SCI_CLEARALL);
    SendScintilla(SCI_APPENDTEXT, static_cast<unsigned long>(text.size()), text.data());
    SendScintilla(SCI_SETUNDOCOLLECTION, 1);
    SendScintilla(SCI_EMPTYUNDOBUFFER);
    SendScintilla(SCI_SETSAVEPOINT);
    setEolMode(text.find("\r\n") == std::string::npos ? EolUnix : EolWindows);
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_GOTOPOS, 0L);
    Tell();
}

TextPlace ScintillaView::Caret() const {
    const long at = SendScintilla(SCI_GETCURRENTPOS);
    const long line = SendScintilla(SCI_LINEFROMPOSITION, at);
    return {static_cast<int>(line) + 1, static_cast<int>(at - SendScintilla(SCI_POSITIONFROMLINE, line)) + 1};
}

void ScintillaView::GoTo(TextPlace place) {
    const long line = std::clamp(place.Line, 1, lines()) - 1;
    const long begin = SendScintilla(SCI_POSITIONFROMLINE, line);
    const long end = SendScintilla(SCI_GETLINEENDPOSITION, line);
    SendScintilla(SCI_GOTOPOS, std::clamp(begin + place.Column - 1, begin, end));
    ShowLine(static_cast<int>(line) + 1);
}

/// Brings a line that is not seen into the middle.
void ScintillaView::ShowLine(int line) {
    const long first = SendScintilla(SCI_GETFIRSTVISIBLELINE);
    const long shown = SendScintilla(SCI_LINESONSCREEN);
    if (line - 1 >= first && line - 1 < first + shown) return;
    SendScintilla(SCI_SETFIRSTVISIBLELINE, std::max(0L, line - 1 - shown / 2));
}

void ScintillaView::Mark(int line) {
    markerDeleteAll();
    if (line <= 0) return;
    const int wrong = std::min(line, lines());
    markerAdd(wrong - 1, kWrongLine);
    markerAdd(wrong - 1, kWrongSign);
    ShowLine(wrong);
}

int ScintillaView::Marked() const {
    // The library's own function for it is not const.
    return static_cast<int>(SendScintilla(SCI_MARKERNEXT, 0UL, 1L << kWrongLine)) + 1;
}

bool ScintillaView::FindFrom(const std::string& words, long from, long to) {
    SendScintilla(SCI_SETTARGETSTART, from);
    SendScintilla(SCI_SETTARGETEND, to);
    SendScintilla(SCI_SETSEARCHFLAGS, 0L);
    if (SendScintilla(SCI_SEARCHINTARGET, static_cast<unsigned long>(words.size()), words.data()) < 0) return false;
    const long begin = SendScintilla(SCI_GETTARGETSTART);
    SendScintilla(SCI_SETSEL, static_cast<unsigned long>(begin), SendScintilla(SCI_GETTARGETEND));
    ShowLine(static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, begin)) + 1);
    return true;
}

bool ScintillaView::Find(const std::string& words, Search search) {
    if (words.empty()) return false;
    const long begin = SendScintilla(SCI_GETSELECTIONSTART);
    const long end = SendScintilla(SCI_GETSELECTIONEND);
    const long last = SendScintilla(SCI_GETLENGTH);
    if (search == Search::Previous) return FindFrom(words, begin, 0) || FindFrom(words, last, 0);
    return FindFrom(words, search == Search::Here ? begin : end, last) || FindFrom(words, 0, last);
}

void ScintillaView::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) return event->ignore();
    QsciScintilla::dragEnterEvent(event);
}

void ScintillaView::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls()) return event->ignore();
    QsciScintilla::dragMoveEvent(event);
}

bool ScintillaView::canInsertFromMimeData(const QMimeData* source) const {
    return !source->hasUrls() && QsciScintilla::canInsertFromMimeData(source);
}

}  // namespace marvolin
