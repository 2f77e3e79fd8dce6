#pragma once

#include <QWidget>
#include <array>

#include "core/session.h"

namespace marvolin {

class Control;

/// The strip below the rows: `SelectorRadio` and `Bands`.
class SelectorStrip : public QWidget {
public:
    static constexpr int kHeight = 34;

    SelectorStrip(Session& session, QWidget* parent);
    void RefreshButton(int button);
    void RefreshBands();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
    std::array<Control*, kBands + 1> buttons_{};
    Control* bands_ = nullptr;
};

}  // namespace marvolin
