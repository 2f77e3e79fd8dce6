#pragma once

#include "window/controls/choice.h"

namespace marvolin {

class WindowKeeper;

/// "Size" on the tab "Optn": how large all windows are drawn. Sizes that do not fit on the screen are grey.
class SizeChoice : public ChoiceList {
public:
    SizeChoice(Session& session, QWidget* parent);
    /// Shows and chooses the size of `keeper`, which must outlive this; until then it shows 100 %.
    void Attach(WindowKeeper& keeper);

    void showPopup() override;

private:
    void Refresh();

    Session& s;
    WindowKeeper* keeper_ = nullptr;
};

}  // namespace marvolin
