#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/session.h"

namespace marvolin {

class Control;
class KnobControl;
class LevelMeter;
class StageKeys;
class TextButton;

/// The bar along the top of the window.
class Toolbar : public QWidget {
public:
    static constexpr int kHeight = 46;

    /// `toggleMode` is what `ToTop` does, `openScripts` what `Scripts` does; without it that is disabled.
    Toolbar(Session& session, QWidget* parent, std::function<void()> toggleMode, std::function<void()> openScripts);
    ~Toolbar() override;

    // Owned by the toolkit.
    Control* Limiter = nullptr;
    Control* FadeFactor = nullptr;
    KnobControl* Master = nullptr;
    TextButton* ToTop = nullptr;
    TextButton* QuickLoadPop = nullptr;
    TextButton* Scripts = nullptr;
    Control* PlayStop = nullptr;
    LevelMeter* Meter = nullptr;
    TextButton* Record = nullptr;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<StageKeys> keys_;
};

}  // namespace marvolin
