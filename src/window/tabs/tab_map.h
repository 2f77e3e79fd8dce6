#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

class ChoiceBox;
class ChoiceList;
class Gauge;
class MapSurface;
class TextButton;

/// The page of the sound map.
class TabMap : public QWidget {
public:
    TabMap(Session& session, QWidget* parent);
    /// Shows all of the page again.
    void Refresh();
    void RefreshBall(int ball);
    /// The places that are written beside the map.
    void RefreshPlaces();
    void RaiseBall(int ball);
    void RefreshSize();
    void RefreshRollOff();
    /// Shows the box "Relative JStick Movement (Map)" again.
    void RefreshJoystick();
    MapSurface* Map = nullptr;  // owned by the toolkit

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void MakeSide();
    void MakeGauges();

    Session& s;
    ChoiceBox* enable_ = nullptr;
    ChoiceBox* headphones_ = nullptr;
    Gauge* size_ = nullptr;
    Gauge* rollOff_ = nullptr;
    ChoiceList* macros_ = nullptr;
    TextButton* centre_ = nullptr;
    ChoiceBox* relative_ = nullptr;
};

}  // namespace marvolin
