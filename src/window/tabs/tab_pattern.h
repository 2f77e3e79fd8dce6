#pragma once

#include <QWidget>
#include <array>

#include "core/loops/loop_views.h"
#include "core/session.h"

class QLabel;

namespace marvolin {

class Control;
class FrameControl;
class PatternGraphControl;
class StepReadOutControl;

/// The page "Ptrn": patterns and timing of `CurrentLoop`.
class TabPattern : public QWidget {
public:
    TabPattern(Session& session, QWidget* parent);

    void RefreshPlayMode();
    /// Says in a line that the steps are not heard, while the mode of the LoopTrack is none that follows them.
    void RefreshHeard();
    void RefreshSteps();
    void RefreshGraph(int patternRow);
    void RefreshColumn(int patternRow, int column);
    void RefreshMarker();
    void RefreshTime(int group);

private:
    void MakePatterns();
    void MakeTiming();

    Session& s;
    // Owned by the toolkit.
    FrameControl* patterns_ = nullptr;
    FrameControl* timing_ = nullptr;
    std::array<PatternGraphControl*, kPatternRows> graphs_{};
    StepReadOutControl* readOut_ = nullptr;
    Control* steps_ = nullptr;
    Control* loopIt_ = nullptr;
    Control* badge_ = nullptr;
    QLabel* unheard_ = nullptr;
    std::array<std::array<Control*, kDigitsAGroup>, kTimeGroups> digits_{};
    std::array<Control*, kTimeGroups> percents_{};
};

}  // namespace marvolin
