#include "window/screens/size_choice.h"

#include <QStandardItemModel>
#include <algorithm>

#include "core/routines.h"
#include "window/screens/program_size.h"
#include "window/screens/window_keeper.h"

namespace marvolin {

namespace {

int EntryOf(int percent) { return static_cast<int>(std::ranges::find(kProgramSizes, percent) - kProgramSizes.begin()); }

}  // namespace

SizeChoice::SizeChoice(Session& session, QWidget* parent)
    : ChoiceList(session, parent, "ProgramSize", -1,
                 [this](int entry) {
                     if (keeper_ != nullptr) keeper_->Choose(kProgramSizes[static_cast<std::size_t>(entry)]);
                 }),
      s(session) {
    for (const int percent : kProgramSizes) addItem(QString("%1 %").arg(percent));
    setMaxVisibleItems(count());
    Show(EntryOf(100));
}

void SizeChoice::Attach(WindowKeeper& keeper) {
    keeper_ = &keeper;
    keeper.OnChange = [this] { Refresh(); };
    keeper.OnUnwritten = [this] {
        ShowStatus(s, "Size and places of the windows cannot be kept: the folder cannot be written.");
    };
    connect(this, &QObject::destroyed, &keeper, [&keeper] {
        keeper.OnChange = nullptr;
        keeper.OnUnwritten = nullptr;
    });
    Refresh();
}

// The main window may have been moved to another screen.
void SizeChoice::showPopup() {
    if (keeper_ != nullptr) Refresh();
    ChoiceList::showPopup();
}

void SizeChoice::Refresh() {
    auto* entries = dynamic_cast<QStandardItemModel*>(model());
    for (std::size_t i = 0; entries != nullptr && i < kProgramSizes.size(); ++i) {
        entries->item(static_cast<int>(i))->setEnabled(keeper_->Fits(kProgramSizes[i]));
    }
    Show(EntryOf(keeper_->Size()));
    setEnabled(keeper_->CanChange());
}

}  // namespace marvolin
