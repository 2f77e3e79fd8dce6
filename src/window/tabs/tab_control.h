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

/// The strips of tabs: that of `TabControl`, and the one on its page of options.
enum class TabStrip : std::uint8_t { Main, Options };

/// One caption of a strip of tabs. A click opens its tab.
class TabButton : public Control {
public:
    /// The caption of the tab `tab`, from 0.
    TabButton(Session& session, QWidget* parent, TabStrip strip, int tab);
    /// While "Ptrn" is open all that it shows.
    std::optional<DragSource> Carried(std::int16_t button) override;

protected:
    /// The arrows open the tab beside this one.
    void keyPressEvent(QKeyEvent* event) override;
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::int16_t OpenTab() const;
    void GoTo(int tab);

    const TabStrip strip_;
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
