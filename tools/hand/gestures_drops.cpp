#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "gestures.h"
#include "places.h"
#include "window/toolkit/drag_source.h"

namespace marvolin::hand {

namespace {

/// A drag of another program comes into a window, moves there, and is dropped or goes again.
void DropOn(Turn& turn, const Place& place, const QMimeData& data) {
    if (!place.Exists()) return;
    turn.Words += " on " + place.Name;
    const QPointer<QWindow> window = place.Window;
    const QPoint at = place.At.toPoint();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window, &enter);
    if (window.isNull()) return;
    QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    move.setDropAction(Qt::CopyAction);
    move.setAccepted(enter.isAccepted());  // as the toolkit passes it on
    QApplication::sendEvent(window, &move);
    if (window.isNull()) return;
    if (!move.isAccepted() || turn.D.OneIn(10)) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(window, &leave);
        turn.Words += ", not taken";
    } else {
        QDropEvent drop(place.At, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window, &drop);
    }
    World::Settle();
}

/// Mostly one of the rows, which take nearly all there is to drop.
Place SomeTarget(Turn& turn) {
    if (turn.W.Main().isVisible() && turn.D.Below(10) < 6) {
        static constexpr const char* kParts[] = {"LoopRow", "SndDisp", "Letr", "DropDown", "Play"};
        const QString name = QString("%1_%2").arg(turn.D.Of(kParts)).arg(turn.D.Below(5));
        if (auto* part = turn.W.Main().findChild<QWidget*>(name); part != nullptr && part->isVisible())
            return SomewhereIn(*part, turn.D);
    }
    return SomePlace(turn.W, turn.D);
}

void DropPaths(Turn& turn, const std::vector<std::string>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& path : paths) urls.append(QUrl::fromLocalFile(QString::fromStdString(turn.W.In(path))));
    data.setUrls(urls);
    turn.Words += paths.empty() ? "nothing" : paths.front();
    if (paths.size() > 1) turn.Words += " and " + std::to_string(paths.size() - 1);
    DropOn(turn, SomeTarget(turn), data);
}

}  // namespace

void DropSamples(Turn& turn) {
    turn.Mouse.LetGo();
    std::vector<std::string> paths;
    const int count = turn.D.OneIn(4) ? turn.D.Between(2, 7) : 1;
    for (int i = 0; i < count; ++i) paths.push_back(turn.D.Of(World::Samples()));
    DropPaths(turn, paths);
}

void DropAnything(Turn& turn) {
    turn.Mouse.LetGo();
    static constexpr const char* kThings[] = {"notes.txt", "Samples",    "empty folder", "no such file.wav",
                                              "Help",      "broken.mvn", "tone.wav",     "Last session.mvn"};
    std::vector<std::string> paths;
    const int count = turn.D.Below(4);
    for (int i = 0; i < count; ++i) paths.emplace_back(turn.D.Of(kThings));
    DropPaths(turn, paths);
}

void DropSet(Turn& turn) {
    turn.Mouse.LetGo();
    std::vector<std::string> paths{turn.D.Of(World::Sets())};
    if (turn.D.OneIn(3)) paths.push_back(turn.D.Of(World::Samples()));
    DropPaths(turn, paths);
}

// As the drags carry it that begin on controls; what depends on a choice in a list begins by the mouse alone.
void DropCarried(Turn& turn) {
    turn.Mouse.LetGo();
    static constexpr const char* kNames[] = {drags::kAllTiming,    drags::kCloneTime, drags::kDropDown, drags::kEraser,
                                             drags::kPatternGraph, drags::kLetr,      drags::kPatterns, drags::kPickDir,
                                             drags::kPosBall,      drags::kTabControl};
    DragSource source{turn.D.Of(kNames), 0, ""};
    const bool ofThree =
        source.Name == drags::kCloneTime || source.Name == drags::kPatternGraph || source.Name == drags::kPickDir;
    const bool ofRows = source.Name == drags::kLetr || source.Name == drags::kDropDown;
    if (ofThree) source.Index = static_cast<Row>(turn.D.Below(3));
    if (ofRows) source.Index = static_cast<Row>(turn.D.Below(5));
    if (source.Name == drags::kPosBall) source.Index = static_cast<Row>(turn.D.Below(kLoopTracks));
    if (source.Name == drags::kLetr) {
        source.Tag = turn.D.OneIn(2) ? std::string(kFadeTag) : "Dropper~~" + std::to_string(source.Index);
    }
    if (source.Name == drags::kPosBall) source.Tag = kFadeTag;
    turn.Words += source.Name + " " + std::to_string(source.Index);
    DropOn(turn, SomeTarget(turn), *ToMimeData(source));
}

}  // namespace marvolin::hand
