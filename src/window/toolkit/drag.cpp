#include "window/toolkit/drag.h"

#include <QDrag>
#include <QFileInfo>
#include <QPainter>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <functional>

#include "audio/sample_loading.h"
#include "browser/bin_gestures.h"
#include "core/routines.h"
#include "performance/drops/dropper.h"
#include "window/descriptions/described.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/drop_words.h"
#include "window/toolkit/one_button.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr QSize kTool{42, 34};       // of `Dropper` and `DissolveCursor`
constexpr QPoint kToolTip{2, 31};    // the tip of the dropper: where the drop falls
constexpr QPoint kArrowTip{1, 1};    // of the help pointer
constexpr QPoint kBeside{-14, -10};  // a label stands below the pointer and to its right
constexpr int kMostLabel = 220;      // pixels
constexpr int kDragLabelHeight = 24;

QPixmap Painted(const QSize& size, double ratio, const std::function<void(QPainter&)>& paint) {
    // The toolkit does not scale pictures below 1: there a part of the picture stays empty.
    QPixmap picture(size * std::max(ratio, 1.0));
    picture.setDevicePixelRatio(std::max(ratio, 1.0));
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.scale(std::min(ratio, 1.0), std::min(ratio, 1.0));
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return picture;
}

/// The letter of the row that a dropper or a fade drag starts from.
void DrawLetter(QPainter& p, Row row) {
    const QRectF badge(23, 1, 18, 18);
    const QColor ground = theme::RowColour(row);
    p.setPen(QPen(theme::RowEdge(row), 1));
    p.setBrush(ground);
    p.drawRoundedRect(badge, 4, 4);
    p.setPen(theme::InkOn(ground));
    p.setFont(theme::Sans(12, QFont::Bold));
    p.drawText(badge, Qt::AlignCenter, QString(QChar(RowLetter(row))));
}

void DrawDropper(QPainter& p) {
    p.save();
    p.translate(kToolTip);
    p.rotate(45);  // the dropper stands upright on its tip
    p.setPen(QPen(theme::kWindow, 1.2));
    p.setBrush(theme::kText);
    p.drawPolygon(QPolygonF({{0, 0}, {-3, -6}, {-3, -18}, {3, -18}, {3, -6}}));
    p.setBrush(theme::kAccent);
    p.drawPolygon(QPolygonF({{0, 0}, {-3, -6}, {-3, -11}, {3, -11}, {3, -6}}));
    p.setBrush(theme::kQuiet);
    p.drawRoundedRect(QRectF(-5.5, -21, 11, 4), 1.5, 1.5);
    p.drawRoundedRect(QRectF(-4, -29, 8, 8.5), 4, 4);
    p.restore();
}

/// One sound fades out while another fades in.
void DrawDissolve(QPainter& p) {
    p.setPen(QPen(theme::kWindow, 1));
    p.setBrush(theme::kQuiet);
    p.drawPolygon(QPolygonF({{2, 17}, {2, 31}, {32, 31}}));
    p.setBrush(theme::kAccent);
    p.setOpacity(0.85);
    p.drawPolygon(QPolygonF({{2, 31}, {32, 31}, {32, 17}}));
    p.setOpacity(1);
}

/// An arrow with a question mark beside it.
void DrawHelpPointer(QPainter& p) {
    p.setPen(QPen(theme::kWindow, 1));
    p.setBrush(theme::kText);
    p.drawPolygon(QPolygonF({{1, 1}, {1, 17}, {5, 13.5}, {8, 20}, {11, 18.6}, {8, 12.5}, {13, 12}}));
    p.setBrush(theme::kAccent);
    p.drawEllipse(QRectF(15, 7, 22, 22));
    p.setPen(theme::kWindow);
    p.setFont(theme::Sans(16, QFont::Bold));
    p.drawText(QRectF(15, 7, 22, 22), Qt::AlignCenter, "?");
}

std::string EntryName(const std::vector<std::string>& entries, int entry) {
    return entry >= 0 && static_cast<std::size_t>(entry) < entries.size() ? entries[static_cast<std::size_t>(entry)]
                                                                          : "";
}

std::string BinSampleName(const Session& s, int bin) {
    const SampleBin& picks = s.Bins[bin];
    return SampleAt(s, bin, picks.Selected).empty() ? "" : picks.Rows[static_cast<std::size_t>(picks.Selected)].Name;
}

/// A control of the pattern tab: what is written on it, and the LoopTrack that it belongs to.
std::string SequenceName(const Session& s, const DragSource& source) {
    if (source.Name == drags::kTabControl) return std::string("Patterns & Timing of ") + RowLetter(s.CurrentLoop);
    const bool ofArray = source.Name == drags::kCloneTime || source.Name == drags::kPatternGraph;
    const Description& row = DescriptionOf(source.Name, ofArray ? source.Index : -1);
    const std::string text = (row.Caption.Empty() ? row.Label : row.Caption).At({s, source.Index});
    return text.substr(0, text.find(':')) + " of " + RowLetter(s.CurrentLoop);
}

bool IsDropper(const DragSource& source) { return clsDropperManager().IsDropping(source); }
bool IsTool(const DragSource& source) { return IsDropper(source) || source.Tag == kFadeTag; }

/// Where the pointer is in the picture.
QPoint HotSpot(const DragSource& source) {
    if (IsHelpDrag(source)) return kArrowTip;
    return IsTool(source) ? kToolTip : kBeside;
}

/// A label with `text`, which is elided where it is too long.
QPixmap LabelPicture(const QString& text, double ratio) {
    const QFont font = theme::Sans(13);
    const QFontMetrics metrics(font);
    const QString name = metrics.elidedText(text, Qt::ElideMiddle, kMostLabel);
    const QRect label(0, 0, metrics.horizontalAdvance(name) + 18, kDragLabelHeight);
    return Painted(label.size(), ratio, [&](QPainter& p) {
        theme::DrawFace(p, label, {}, theme::kRaised, theme::kAccent);
        p.setFont(font);
        p.setPen(theme::kText);
        p.drawText(label, Qt::AlignCenter, name);
    });
}

/// Runs a drag that has all it carries. Only the button that holds `from` ends it. Meanwhile no control shows a hint:
/// the status line has `words`, unless something is reported.
void RunAlone(QWidget& from, Session& s, QDrag& drag, const std::string& words) {
    const Described* described = DescribedOf(from);
    const OneButton only(described == nullptr ? Qt::NoButton : described->Holder());
    DropWordsShown shown(s, from, words);
    if (drag.exec(Qt::CopyAction) != Qt::IgnoreAction) shown.Dropped();
}

}  // namespace

std::string DragName(const Session& s, const DragSource& source) {
    if (IsHelpDrag(source)) return "Help";
    if (source.Name == drags::kPickFile) return BinSampleName(s, source.Index);
    if (source.Name == drags::kPickDir) return s.Bins[source.Index].Caption;
    if (source.Name == drags::kClipBoardList) return EntryName(s.Clips.List, s.Clips.Selected);
    if (source.Name == drags::kHistoryList) return EntryName(s.HistoryEntries, s.HistoryChoice);
    if (source.Name == drags::kDropDown) {
        const std::string sample = source.Index == kSelectionRow ? "" : LoopFileName(s, source.Index);
        return sample.empty() ? std::string("LoopTrack ") + RowLetter(source.Index) : sample;
    }
    if (source.Name == drags::kEraser) return "Eraser";
    if (IsTool(source)) return std::string(IsDropper(source) ? "Settings of " : "Fade of ") + RowLetter(source.Index);
    return SequenceName(s, source);
}

QPixmap DragPicture(const Session& s, const DragSource& source, double ratio) {
    if (IsHelpDrag(source)) return Painted(kTool, ratio, DrawHelpPointer);
    if (IsTool(source)) {
        return Painted(kTool, ratio, [&](QPainter& p) {
            IsDropper(source) ? DrawDropper(p) : DrawDissolve(p);
            DrawLetter(p, source.Index);
        });
    }
    return LabelPicture(QString::fromStdString(DragName(s, source)), ratio);
}

void RunDrag(QWidget& from, Session& s, const DragSource& source) {
    auto* drag = new QDrag(&from);  // the toolkit deletes it after the drop
    drag->setMimeData(ToMimeData(source).release());
    drag->setPixmap(DragPicture(s, source, from.devicePixelRatioF()));
    drag->setHotSpot(HotSpot(source));
    // The help pointer is the pointer itself; beside it the usual one would be a second arrow.
    if (IsHelpDrag(source)) drag->setDragCursor(Painted({1, 1}, 1, [](QPainter&) {}), Qt::CopyAction);
    RunAlone(from, s, *drag, DropWords(source));
}

void RunFolderDrag(QWidget& from, Session& s, const QString& path) {
    auto* drag = new QDrag(&from);  // the toolkit deletes it after the drop
    auto* data = new QMimeData;     // belongs to the drag
    data->setUrls({QUrl::fromLocalFile(path)});
    drag->setMimeData(data);
    drag->setPixmap(LabelPicture(QFileInfo(path).fileName(), from.devicePixelRatioF()));
    drag->setHotSpot(kBeside);
    RunAlone(from, s, *drag, kFolderDropWords);
}

}  // namespace marvolin
