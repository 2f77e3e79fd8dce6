#pragma once

#include "performance/drops/palette.h"
#include "window/controls/control.h"

namespace marvolin {

/// Room at the right end of a name whose sample is missing, for `FindSample`; pixels.
inline constexpr int kFindRoom = 46;

/// `DropDown`: the name of a row's sample. A drag of its top 8 pixels, the grip, copies the sample; a click below them
/// opens the palette. A missing sample is struck through.
class DropDownControl : public Control, public HasParts {
public:
    DropDownControl(Session& session, QWidget* parent, Row row);
    void Refresh() override;
    /// A `DropDownPart`.
    int PartAt(QPointF place) const override;
    std::optional<DragSource> Carried(std::int16_t) override { return DropDown_MouseDown(s, index, 0); }

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void PointerLost(std::int16_t, QPointF) override {}
    void paintEvent(QPaintEvent* event) override;

private:
    QString Text() const;
    void PaintMissing(QPainter& p, const std::string& missing) const;
};

}  // namespace marvolin
