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
    /// All of the page.
    void Refresh();
    void RefreshBall(int ball);
    void RaiseBall(int ball);
    void RefreshSize();
    void RefreshRollOff();
    /// The box "Relative JStick Movement (Map)".
    void RefreshJoystick();
    MapSurface* Map = nullptr;  // owned by the toolkit

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void MakeSide();

    Session& s;
    ChoiceBox* enable_ = nullptr;
    Gauge* size_ = nullptr;
    Gauge* rollOff_ = nullptr;
    ChoiceList* macros_ = nullptr;
    TextButton* centre_ = nullptr;
    TextButton* front_ = nullptr;
    ChoiceBox* relative_ = nullptr;
};

}  // namespace marvolin
