#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// The page of the mix pad.
class TabMixPad : public QWidget {
public:
    TabMixPad(Session& session, QWidget* parent);

    /// Inner size of pad and map, twips.
    static double InnerWidth() { return kPadPixels * kTwipsPerPixel; }
    static double InnerHeight() { return kPadPixels * kTwipsPerPixel; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr int kPadPixels = 274;

    Session& s;
};

}  // namespace marvolin
