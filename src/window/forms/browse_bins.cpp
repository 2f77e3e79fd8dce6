#include "window/forms/browse_bins.h"

#include "browser/destinations.h"
#include "window/controls/bin_list.h"
#include "window/controls/choice.h"
#include "window/controls/folder_tree.h"
#include "window/controls/pick_dir.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr int kBinsEdge = 10;
constexpr int kHead = 106;  // height of the controls above a list

}  // namespace

BrowseBins::BrowseBins(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    for (int bin = 0; bin < kBins; ++bin) {
        const auto i = static_cast<std::size_t>(bin);
        folders_[i] = new PickDir(s, this, bin);
        destinations_[i] = new ChoiceList(s, this, "FileDestination", bin, [this, bin](int entry) {
            ChooseDestination(s, bin, static_cast<std::int16_t>(entry));
        });
        plays_[i] =
            new ChoiceBox(s, this, "ClickPlay", bin, [this, bin](bool on) { s.Bins[bin].ClickPlay = on ? 1 : 0; });
        lists_[i] = new BinList(s, this, bin);
    }
    Tree = new FolderTree(s, this);
    for (int bin = 0; bin < kBins; ++bin) RefreshBin(bin);
    RefreshDestinations();
}

void BrowseBins::resizeEvent(QResizeEvent*) {
    const int wide = (width() - kBinsEdge * (kBins + 1)) / kBins;
    for (int bin = 0; bin < kBins; ++bin) {
        const auto i = static_cast<std::size_t>(bin);
        const int left = kBinsEdge + bin * (wide + kBinsEdge);
        folders_[i]->setGeometry(left, 8, wide, 30);
        plays_[i]->setGeometry(left, 73, wide, 28);
        destinations_[i]->setGeometry(left, 43, plays_[i]->width(), 28);
        lists_[i]->setGeometry(left, kHead, wide, height() - kHead - kBinsEdge);
    }
    const int treeTop = kHead + (height() - kHead) / 3;
    Tree->setGeometry(kBinsEdge, treeTop, width() - 2 * kBinsEdge, height() - treeTop - kBinsEdge);
}

void BrowseBins::RefreshBin(int bin) {
    const auto i = static_cast<std::size_t>(bin);
    folders_[i]->Refresh();
    lists_[i]->Refresh();
    plays_[i]->Show(s.Bins[bin].ClickPlay == 1);
}

void BrowseBins::RefreshDestinations() {
    const QStringList entries = ToQStrings(DestinationTexts(s));
    for (int bin = 0; bin < kBins; ++bin) {
        const auto i = static_cast<std::size_t>(bin);
        destinations_[i]->SetEntries(entries);
        destinations_[i]->Show(s.Bins[bin].Destination);
        lists_[i]->update();
    }
}

}  // namespace marvolin
