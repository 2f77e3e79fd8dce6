#include "window/tabs/tab_pattern.h"

#include "core/loops/loop_views.h"
#include "sequencing/timing.h"
#include "window/controls/choice.h"
#include "window/controls/pattern_graph.h"
#include "window/controls/scale_labels.h"
#include "window/controls/steps_control.h"
#include "window/controls/time_controls.h"
#include "window/rows/loop_it.h"

namespace marvolin {

namespace {

constexpr int kGraphLeft = 158;
constexpr int kGraphWidth = 540;
constexpr int kGraphTop = 26;
constexpr int kGraphHeight = 77;
constexpr int kGraphPitch = kGraphHeight + 6;

/// A group of digits and the number of its label `CloneTime`.
struct TimePlace {
    int Group;
    int Clone;
};
constexpr std::array<TimePlace, 3> kTimes{
    // from top to bottom
    {{kStepDurationGroup, kCloneStepDuration}, {kSwingGroup, kCloneSwing}, {kBeatStartGroup, kCloneBeatStart}}};

}  // namespace

TabPattern::TabPattern(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "PatternPage");
    MakePatterns();
    MakeTiming();
    unheard_ = MakeLabel(this, "", {kGraphLeft + 12, 291, 700, 20});
    unheard_->setAttribute(Qt::WA_TransparentForMouseEvents);  // the margin is dragged here, too
    RefreshHeard();
}

void TabPattern::RefreshHeard() {
    const bool heard = s.Set[s.CurrentLoop].PlayMode >= kTrack;
    const QString letter(QChar(RowLetter(s.CurrentLoop)));
    unheard_->setText("Steps are heard in Track and Drum: drag the picture of the mode of " + letter + " up.");
    unheard_->setVisible(!heard);
}

void TabPattern::MakePatterns() {
    patterns_ = new FrameControl(s, this, drags::kPatterns);
    patterns_->setGeometry(12, 8, 710, 280);
    badge_ = new CurrentBadge(s, patterns_);
    badge_->setGeometry(12, 27, 76, 30);
    loopIt_ = new LoopItControl(s, patterns_, kMasterRow);
    loopIt_->setGeometry(12, 64, 76, 76);
    steps_ = new StepsControl(s, patterns_);
    steps_->setGeometry(12, 147, 76, 46);
    auto* eraser = new EraserControl(s, patterns_);
    eraser->setGeometry(12, 200, 76, 46);
    readOut_ = new StepReadOutControl(s, patterns_);
    readOut_->setGeometry(kGraphLeft, 8, kGraphWidth, 13);
    for (int row = 0; row < kPatternRows; ++row) {
        auto* graph = new PatternGraphControl(s, patterns_, row);
        graph->setGeometry(kGraphLeft, kGraphTop + row * kGraphPitch, kGraphWidth, kGraphHeight);
        graphs_[static_cast<std::size_t>(row)] = graph;
        auto* scale = new ScaleLabels(patterns_, row);
        scale->setGeometry(94, kGraphTop + row * kGraphPitch - 4, kGraphLeft - 98, kGraphHeight + 8);
    }
}

void TabPattern::MakeTiming() {
    timing_ = new FrameControl(s, this, drags::kAllTiming);
    timing_->setGeometry(732, 8, 280, 280);
    int top = 30;
    for (const TimePlace& time : kTimes) {
        auto* clone = new CloneTimeControl(s, timing_, time.Clone);
        clone->setGeometry(12, top, 150, 20);
        int left = 12;
        for (int digit = 4; digit >= 0; --digit) {
            auto* made = new TimeDigitControl(s, timing_, time.Group * kDigitsAGroup + digit);
            made->setGeometry(left, top + 24, 28, 38);
            digits_[static_cast<std::size_t>(time.Group)][static_cast<std::size_t>(digit)] = made;
            left += 30;
            if (digit != 2) continue;
            auto* point = new DecimalPoint(timing_);
            point->setGeometry(left - 1, top + 24, 8, 38);
            left += 8;
        }
        QLabel* unit = MakeLabel(timing_, "s", {left + 1, top + 32, 10, 30});
        unit->setAttribute(Qt::WA_TransparentForMouseEvents);  // the frame is dragged here, too
        auto* percent = new PercentReadOutControl(s, timing_, time.Group);
        percent->setGeometry(left + 14, top + 28, 280 - left - 22, 30);
        percents_[static_cast<std::size_t>(time.Group)] = percent;
        top += 82;
    }
}

void TabPattern::RefreshPlayMode() { loopIt_->Refresh(); }

void TabPattern::RefreshSteps() {
    steps_->Refresh();
    badge_->Refresh();
    readOut_->Refresh();
    RefreshHeard();
}

void TabPattern::RefreshGraph(int patternRow) { graphs_[static_cast<std::size_t>(patternRow)]->Refresh(); }

void TabPattern::RefreshColumn(int patternRow, int column) {
    graphs_[static_cast<std::size_t>(patternRow)]->RefreshColumn(column);
}

void TabPattern::RefreshMarker() { readOut_->Refresh(); }

void TabPattern::RefreshTime(int group) {
    for (Control* digit : digits_[static_cast<std::size_t>(group)]) digit->Refresh();
    percents_[static_cast<std::size_t>(group)]->Refresh();
}

}  // namespace marvolin
