#pragma once

#include <QWidget>
#include <array>

#include "core/session.h"

namespace marvolin {

class ChoiceBox;
class ClipList;

/// The page "ClipBrd" of the browser.
class BrowseClips : public QWidget {
public:
    BrowseClips(Session& session, QWidget* parent);
    void Refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Session& s;
    ClipList* list_ = nullptr;
    QWidget* side_ = nullptr;
    std::array<ChoiceBox*, 7> components_{};
};

}  // namespace marvolin
