#include <QApplication>

#include "gestures.h"
#include "persistence/save_open.h"
#include "persistence/snapshot.h"

namespace marvolin::hand {

namespace {

/// Windows that can be closed without the end of the program.
std::vector<QWidget*> OtherWindows(World& world) {
    std::vector<QWidget*> others = world.Windows();
    std::erase(others, &world.Main());
    return others;
}

}  // namespace

void SaveSet(Turn& turn) {
    turn.Mouse.LetGo();
    if (turn.D.OneIn(8)) {
        turn.Words += "a snapshot";
        return SnapShot_MouseUp(turn.W.s);
    }
    const std::string& set = turn.D.Of(World::Sets());
    turn.Words += set;
    SaveItAs_Chosen(turn.W.s, CurrentChoices(turn.W.s), turn.W.In(set));
}

void OpenSet(Turn& turn) {
    turn.Mouse.LetGo();
    const std::string& set = turn.D.OneIn(10) ? "broken.mvn" : turn.D.Of(World::Sets());
    turn.Words += set;
    OpenBesideDialogue(turn.W.s, turn.W.In(set));
}

// Some or all of them, for saving or for opening.
void ChooseElements(Turn& turn) {
    SaveOpenChoices choices = CurrentChoices(turn.W.s);
    const int list = turn.D.Below(2);
    auto& elements = choices.Elements[static_cast<std::size_t>(list)];
    elements.fill(true);
    const int without = turn.D.OneIn(2) ? 0 : turn.D.Between(1, 12);
    for (int i = 0; i < without; ++i) turn.D.Of(elements) = false;
    choices.SelectionsOnly = turn.D.OneIn(4);
    choices.EmptyBlank = turn.D.OneIn(3);
    TakeBack(turn.W.s, choices);
    turn.W.s.World.Screen.ShowSaveOpen();
    turn.Words += std::to_string(without) + " off for " + (list == 0 ? "saving" : "opening");
}

void RunScriptText(Turn& turn) {
    static constexpr const char* kTexts[] = {
        "function OnClock() marvolin.volume('A', 0.5) end", "error('no')",          "x =", "while true do end",
        "function OnVolScroll() error('never') end",        "print(('a'):rep(100))"};
    const bool own = turn.D.OneIn(4);
    const std::string name = own ? "own" : turn.D.Of(World::Scripts());
    turn.Words += name;
    turn.W.Room.Run(own ? turn.D.Of(kTexts) : turn.W.ScriptText(name), name + ".mvs");
}

void StopScriptText(Turn& turn) { turn.W.Room.Stop(); }

void ActivateWindow(Turn& turn) {
    const std::vector<QWidget*> windows = turn.W.Windows();
    if (windows.empty()) return;
    QWidget* window = windows[static_cast<std::size_t>(turn.D.Below(static_cast<int>(windows.size())))];
    turn.Words += window->objectName().toStdString();
    window->activateWindow();
    World::Settle();
}

void ChangeWindow(Turn& turn) {
    const std::vector<QWidget*> windows = turn.W.Windows();
    if (windows.empty()) return;
    QWidget* window = windows[static_cast<std::size_t>(turn.D.Below(static_cast<int>(windows.size())))];
    turn.Words += window->objectName().toStdString();
    switch (turn.D.Below(3)) {
        case 0:
            window->move(turn.D.Between(-200, 900), turn.D.Between(-100, 700));
            break;
        case 1:
            window->resize(turn.D.Between(1, 1400), turn.D.Between(1, 900));
            break;
        default:
            window->showMinimized();
            World::Settle();
            window->showNormal();
    }
    World::Settle();
}

void CloseWindow(Turn& turn) {
    turn.Mouse.LetGo();
    const std::vector<QWidget*> others = OtherWindows(turn.W);
    if (others.empty()) return;
    QWidget* window = others[static_cast<std::size_t>(turn.D.Below(static_cast<int>(others.size())))];
    turn.Words += window->objectName().toStdString();
    window->close();
    World::Settle();
}

}  // namespace marvolin::hand
