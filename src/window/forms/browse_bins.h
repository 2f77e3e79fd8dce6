#pragma once

#include <QWidget>
#include <array>

#include "core/session.h"

namespace marvolin {

class BinList;
class ChoiceBox;
class ChoiceList;
class FolderTree;
class PickDir;

/// The page "1-3" of the browser: three sample bins, and the folder tree when it is open.
class BrowseBins : public QWidget {
public:
    BrowseBins(Session& session, QWidget* parent);
    /// Shows folder, samples and colour of a bin again.
    void RefreshBin(int bin);
    /// Shows the entries and choices of the destination lists again.
    void RefreshDestinations();
    FolderTree* Tree = nullptr;  // owned by the toolkit

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Session& s;
    std::array<PickDir*, kBins> folders_{};
    std::array<ChoiceList*, kBins> destinations_{};
    std::array<ChoiceBox*, kBins> plays_{};
    std::array<BinList*, kBins> lists_{};
};

}  // namespace marvolin
