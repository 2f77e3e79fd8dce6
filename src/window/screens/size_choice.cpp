#include "window/screens/size_choice.h"

#include <QStandardItemModel>
#include <algorithm>

#include "window/screens/program_size.h"
#include "window/screens/window_keeper.h"

namespace marvolin {

namespace {

int EntryOf(int percent) { return static_cast<int>(std::ranges::find(kProgramSizes, percent) - kProgramSizes.begin()); }

}  // namespace

SizeChoice::SizeChoice(Session& session, QWidget* parent)
    : ChoiceList(session, parent, "ProgramSize", -1, [this](int entry) {
          if (keeper_ != nullptr) keeper_->Choose(kProgramSizes[static_cast<std::size_t>(entry)]);
      }) {
    for (const int percent : kProgramSizes) addItem(QString("%1 %").arg(percent));
    Show(EntryOf(100));
}

void SizeChoice::Attach(WindowKeeper& keeper) {
    keeper_ = &keeper;
    keeper.OnChange = [this] { Refresh(); };
    connect(this, &QObject::destroyed, &keeper, [&keeper] { keeper.OnChange = nullptr; });
    Refresh();
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
