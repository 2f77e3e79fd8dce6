#pragma once

#include "window/controls/control.h"

namespace marvolin {

/// `DropDown`: the name of a row's sample. Its uppermost 8 pixels are the grip by which the sample is dragged, the rest
/// opens the palette.
class DropDownControl : public Control {
public:
    DropDownControl(Session& session, QWidget* parent, Row row);
    void Refresh() override;

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    std::string_view Hint(QPointF place) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString Text() const;

    const Row row_;
};

}  // namespace marvolin
