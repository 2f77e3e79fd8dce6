#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "window/controls/control.h"

namespace marvolin {

class TabMap;
class TabMixPad;
class TabOptions;
class TabPattern;

/// One caption of a strip of tabs.
class TabButton : public Control {
public:
    /// `active` is the session's number of the open tab. `choose` opens a tab.
    TabButton(Session& session, QWidget* parent, const char* name, int tab, const std::int16_t& active,
              void (*choose)(Session&, std::int16_t));

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const std::int16_t& active_;
    void (*const choose_)(Session&, std::int16_t);
};

/// `TabControl`: the captions "Mix Pad", "3d Map", "Ptrn" and "Optn" and their pages.
class TabControl : public Control {
public:
    static constexpr int kHeight = 344;

    TabControl(Session& session, QWidget* parent);
    /// Shows the page of the tab that is open in the session.
    void Refresh() override;

    // Owned by the toolkit.
    TabMixPad* MixPad = nullptr;
    TabMap* Map = nullptr;
    TabPattern* Pattern = nullptr;
    TabOptions* Options = nullptr;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<TabButton*> captions_;
    std::array<QWidget*, kTabs> pages_{};
};

}  // namespace marvolin
