#include "gestures.h"

#include <array>
#include <numeric>

namespace marvolin::hand {

namespace {

constexpr std::array kGestures{
    Gesture{"click", 150, ClickControl},
    Gesture{"double click", 30, DoubleClickControl},
    Gesture{"drag", 150, DragControl},
    Gesture{"press or move", 90, PressOrMove},
    Gesture{"release", 50, ReleaseButton},
    Gesture{"second button", 25, SecondButton},
    Gesture{"wheel", 70, TurnWheel},
    Gesture{"hover", 40, Hover},
    Gesture{"tab", 20, OpenTab},
    Gesture{"folder tree", 1, UseFolderTree},
    Gesture{"letter", 60, PlayKey},
    Gesture{"key", 80, ControlKey},
    Gesture{"focus", 25, WalkFocus},
    Gesture{"undo", 20, UndoKey},
    Gesture{"held key", 20, HeldKey},
    Gesture{"text", 4, TypeText},
    Gesture{"samples", 30, DropSamples},
    Gesture{"rubbish", 8, DropAnything},
    Gesture{"dropped set", 4, DropSet},
    Gesture{"dropped control", 40, DropCarried},
    Gesture{"moment", 120, PassMoment},
    Gesture{"seconds", 12, PassSeconds},
    Gesture{"half a minute", 1, PassLong},
    Gesture{"stick", 40, MoveStick},
    Gesture{"stick plugged", 4, PlugStick},
    Gesture{"output plugged", 4, PlugOutput},
    Gesture{"sound refused", 3, RefuseSound},
    Gesture{"sample lost", 4, LoseSample},
    Gesture{"save", 6, SaveSet},
    Gesture{"open", 4, OpenSet},
    Gesture{"elements", 5, ChooseElements},
    Gesture{"script", 4, RunScriptText},
    Gesture{"script stopped", 4, StopScriptText},
    Gesture{"script window", 4, OpenScriptWindow},
    Gesture{"script text", 16, WriteScriptText},
    Gesture{"size", 1, ChooseSize},
    Gesture{"screens", 1, ChangeScreens},
    Gesture{"window activated", 12, ActivateWindow},
    Gesture{"window changed", 6, ChangeWindow},
    Gesture{"window closed", 4, CloseWindow},
};

}  // namespace

std::span<const Gesture> Gestures() { return kGestures; }

const Gesture& SomeGesture(Dice& dice) {
    static constexpr int kAll = [] {
        int sum = 0;
        for (const Gesture& gesture : kGestures) sum += gesture.Weight;
        return sum;
    }();
    int at = dice.Below(kAll);
    for (const Gesture& gesture : kGestures) {
        at -= gesture.Weight;
        if (at < 0) return gesture;
    }
    return kGestures.back();
}

}  // namespace marvolin::hand
