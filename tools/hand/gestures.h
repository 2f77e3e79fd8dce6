#pragma once
/// \file
/// What the hand can do, as a table.

#include <span>
#include <string>

#include "dice.h"
#include "pointer.h"
#include "world.h"

namespace marvolin::hand {

/// A gesture under way.
struct Turn {
    World& W;
    Dice& D;
    Pointer& Mouse;
    Keyboard& Keys;
    std::string& Words;  ///< what was done, beside the name of the gesture
};

/// A row of the table. A gesture is made as often as its weight says.
struct Gesture {
    const char* Name;
    int Weight;
    void (*Do)(Turn& turn);
};

/// A key as it is written, with what is held beside it.
std::string KeyName(Qt::Key key, Qt::KeyboardModifiers held);

/// All gestures.
std::span<const Gesture> Gestures();
/// One of them, by the dice.
const Gesture& SomeGesture(Dice& dice);

// Of the mouse. What is pressed and not released stays down over the next gestures.
void ClickControl(Turn& turn);
void DoubleClickControl(Turn& turn);
void DragControl(Turn& turn);
void PressOrMove(Turn& turn);
void ReleaseButton(Turn& turn);
void SecondButton(Turn& turn);
void TurnWheel(Turn& turn);
void Hover(Turn& turn);
void OpenTab(Turn& turn);
void UseFolderTree(Turn& turn);

// Of the keys.
void PlayKey(Turn& turn);
void ControlKey(Turn& turn);
void WalkFocus(Turn& turn);
void UndoKey(Turn& turn);
void HeldKey(Turn& turn);
void TypeText(Turn& turn);

// Of drops.
void DropSamples(Turn& turn);
void DropAnything(Turn& turn);
void DropSet(Turn& turn);
void DropCarried(Turn& turn);

// Of the window of scripts.
void OpenScriptWindow(Turn& turn);
void WriteScriptText(Turn& turn);

// Of sizes and screens.
void ChooseSize(Turn& turn);
void ChangeScreens(Turn& turn);

// Of time and of what is plugged in.
void PassMoment(Turn& turn);
void PassSeconds(Turn& turn);
void PassLong(Turn& turn);
void MoveStick(Turn& turn);
void PlugStick(Turn& turn);
void PlugOutput(Turn& turn);
void RefuseSound(Turn& turn);
void LoseSample(Turn& turn);

// Of sets, scripts and windows.
void SaveSet(Turn& turn);
void OpenSet(Turn& turn);
void ChooseElements(Turn& turn);
void RunScriptText(Turn& turn);
void StopScriptText(Turn& turn);
void ActivateWindow(Turn& turn);
void ChangeWindow(Turn& turn);
void CloseWindow(Turn& turn);

}  // namespace marvolin::hand
