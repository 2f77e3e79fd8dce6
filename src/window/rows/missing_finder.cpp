#include "window/rows/missing_finder.h"

#include <QApplication>
#include <QKeyEvent>
#include <chrono>
#include <cstdint>

#include "core/routines.h"
#include "window/toolkit/file_dialogue.h"

namespace marvolin {

namespace {

constexpr int kTurnPeriod = 5;  // ms

std::int64_t SteadyTime() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

MissingFinder::MissingFinder(Session& session) : s(session) {
    turn_.setInterval(kTurnPeriod);
    turn_.callOnTimeout(this, [this] { LookOn(); });
}

MissingFinder::~MissingFinder() { Stop(); }

void MissingFinder::Ask(QWidget* window) {
    FileDialogue dialogue(s, window, false, "Find missing samples in a folder and below", nullptr);
    dialogue.setFileMode(QFileDialog::Directory);
    dialogue.setOption(QFileDialog::ShowDirsOnly);
    if (!s.CurrentFolder.empty()) dialogue.setDirectory(QString::fromStdString(s.CurrentFolder));
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return;
    Look(dialogue.selectedFiles().first().toStdString());
}

void MissingFinder::Look(const std::string& folder) {
    Stop();
    search_ = std::make_unique<SampleSearch>(folder, MissingNames(s));
    busy_.emplace(s);
    qApp->installEventFilter(this);
    ShowStatus(s, "Looking in " + folder + " and below. Escape ends it.");
    turn_.start();
}

void MissingFinder::LookOn() {
    if (!search_->StepFor(SampleSearch::kTurn, SteadyTime)) return;
    const FoundSamples found = search_->Found();
    Stop();
    LoadFound(s, found);
}

void MissingFinder::Stop() {
    if (!search_) return;
    turn_.stop();
    qApp->removeEventFilter(this);
    busy_.reset();
    search_.reset();
}

bool MissingFinder::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
    event->accept();
    if (event->type() == QEvent::ShortcutOverride) return true;
    Stop();
    ShowStatus(s, "The search has ended, and nothing is loaded.");
    return true;
}

}  // namespace marvolin
