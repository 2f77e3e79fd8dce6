// The control on which a drag would be dropped lights up.

#include "window/toolkit/drop_ring.h"

#include <gtest/gtest.h>

#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

struct Dragged : Stage {
    QWidget* Ringed() { return DropRing::Of(*qApp).Target(); }
    void Enter(const char* name, const DragSource& source) {
        const auto data = ToMimeData(source);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(At(name), &enter);
    }
    void MoveQuestionMark(const char* name) {
        const auto data = ToMimeData({"StatusBar1", 0, "ForHelp~~"});
        QDragMoveEvent move(InWindow(name, Middle(name)), Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(Form->windowHandle(), &move);
    }
};

TEST(DropRing, ATargetLightsUpWhileTheDragIsOverIt) {
    Dragged stage;
    EXPECT_EQ(stage.Ringed(), nullptr);
    stage.Enter("Letr_1", {"Letr", 0, "Dropper~~0"});
    EXPECT_EQ(stage.Ringed(), stage.At("Letr_1"));
    QDragLeaveEvent leave;
    QApplication::sendEvent(stage.At("Letr_1"), &leave);
    EXPECT_EQ(stage.Ringed(), nullptr);
}

TEST(DropRing, WhatRefusesADragStaysDark) {
    Dragged stage;
    stage.Enter("Letr_1", {"Letr", 0, "Dropper~~0"});
    stage.Enter("Letr_0", {"Letr", 0, "Dropper~~0"});
    EXPECT_EQ(stage.Ringed(), nullptr);
    stage.Enter("SndDisp_1", {"Eraser", 0, ""});
    EXPECT_EQ(stage.Ringed(), nullptr);
}

TEST(DropRing, GoesWithTheDrop) {
    Dragged stage;
    stage.DropControl("SndDisp_1", {"Letr", 0, "Dropper~~0"});
    EXPECT_EQ(stage.Ringed(), nullptr);
}

TEST(DropRing, TheQuestionMarkLightsUpWhateverItAsksAbout) {
    Dragged stage;
    for (const char* name : {"Browse", "Scripts", "VolKnob_2", "Tab_1"}) {
        stage.MoveQuestionMark(name);
        EXPECT_EQ(stage.Ringed(), stage.At(name)) << name;
    }
    EXPECT_EQ(stage.Form->childAt(stage.InWindow("Tab_1", stage.Middle("Tab_1"))), stage.At("Tab_1"));
    QDragLeaveEvent leave;
    QApplication::sendEvent(stage.Form->windowHandle(), &leave);
    EXPECT_EQ(stage.Ringed(), nullptr);
}

}  // namespace
}  // namespace marvolin
