#include "window/forms/browse_clips.h"

#include <QLabel>

#include "browser/clipboard.h"
#include "window/controls/choice.h"
#include "window/controls/clip_list.h"
#include "window/controls/text_button.h"

namespace marvolin {

namespace {

constexpr int kClipsEdge = 10;
constexpr int kSide = 230;

}  // namespace

BrowseClips::BrowseClips(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    list_ = new ClipList(s, this);
    side_ = new QWidget(this);
    const auto caption = [this](const char* text, int top) {
        QLabel* label = MakeLabel(side_, text, {0, top, kSide, 36});
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    };
    caption("Drag copies all LoopTrack elements", 2);
    caption("Right drag copies the following Elements:", 26);
    for (int i = 0; i < 7; ++i) {
        auto* box = new ChoiceBox(s, side_, "Components", i, [this, i](bool on) { s.Clips.Components[i] = on; });
        box->setGeometry(8, 66 + i * 26, kSide - 16, 24);
        components_[static_cast<std::size_t>(i)] = box;
    }
    auto* trash = new Trash(s, side_);
    trash->setGeometry(0, 260, 92, 62);
    auto* clear = new TextButton(s, side_, "ClearClip", [this] { ClearClip_Click(s); });
    clear->setGeometry(104, 276, 92, 30);
    Refresh();
}

void BrowseClips::resizeEvent(QResizeEvent*) {
    list_->setGeometry(kClipsEdge, kClipsEdge, width() - kSide - 3 * kClipsEdge, height() - 2 * kClipsEdge);
    side_->setGeometry(width() - kSide - kClipsEdge, kClipsEdge, kSide, height() - 2 * kClipsEdge);
}

void BrowseClips::Refresh() {
    list_->Refresh();
    for (int i = 0; i < 7; ++i) components_[static_cast<std::size_t>(i)]->Show(s.Clips.Components[i]);
}

}  // namespace marvolin
