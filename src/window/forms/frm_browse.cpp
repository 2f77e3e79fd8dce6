#include "window/forms/frm_browse.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "browser/sample_bins.h"
#include "window/descriptions/described.h"
#include "window/forms/browse_bins.h"
#include "window/forms/browse_clips.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr int kBinTab = 0;
constexpr int kBarHeight = 26;
constexpr int kHelpWidth = 32;
constexpr std::size_t kFilesATurn = 16;  // of the check, in one turn of the event loop: the step clock must not wait

constexpr const char* kNoBins = "No bins here yet: the three sample bins are on the tab 1-3.";

QWidget* EmptyPage(const char* text) {
    auto* page = new QLabel(text);
    page->setAlignment(Qt::AlignCenter);
    page->setFont(theme::Sans(13));
    theme::SetInk(*page, theme::kQuiet);
    return page;
}

}  // namespace

FrmBrowse::FrmBrowse(Session& session) : s(session) {
    Describe(s, *this, "frmBrowse");
    setWindowTitle("marvolin browser");
    setMinimumSize(kLeastSize);
    resize(kSize);
    tabs_ = new QTabBar;
    Describe(s, *tabs_, "Sstab");
    tabs_->setDrawBase(false);
    tabs_->setFocusPolicy(Qt::TabFocus);
    pages_ = new QStackedWidget;
    Describe(s, *pages_, "BrowsePages");
    Bins = new BrowseBins(s, nullptr);
    Clips = new BrowseClips(s, nullptr);
    const auto add = [this](const char* caption, QWidget* page) {
        tabs_->addTab(caption);
        pages_->addWidget(page);
    };
    add("1-3", Bins);
    add("4-6", EmptyPage(kNoBins));
    add("7-9", EmptyPage(kNoBins));
    add("ClipBrd", Clips);
    status_ = new BrowseStatus(s, this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 0);
    column->setSpacing(0);
    column->addWidget(tabs_);
    column->addWidget(pages_, 1);
    column->addSpacing(4);
    column->addWidget(status_);
    check_.setInterval(0);
    check_.callOnTimeout(this, [this] {
        if (!CheckPickFiles(s, kFilesATurn)) check_.stop();
    });
    connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
        pages_->setCurrentIndex(tab);
        ShowHint("");  // the last hint was about another page
        if (tab == kBinTab) Rescan();
    });
}

void FrmBrowse::ShowHint(std::string_view hint) { status_->Show(ToQString(hint)); }

void FrmBrowse::TakeHintAway(std::string_view hint) {
    if (status_->Text() == ToQString(hint)) status_->Show("");
}

bool FrmBrowse::ShowsNothing() const { return status_->Text().isEmpty(); }

void FrmBrowse::Rescan() {
    LookAtPickFiles(s);
    check_.start();
}

// A folder that has changed is shown when the player comes back to the browser.
void FrmBrowse::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) Rescan();
    QWidget::showEvent(event);
}

void FrmBrowse::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) Rescan();
    QWidget::changeEvent(event);
}

void FrmBrowse::closeEvent(QCloseEvent* event) {
    if (mayClose_) {
        event->accept();
        return;
    }
    event->ignore();
    hide();
}

BrowseStatus::BrowseStatus(Session& session, QWidget* parent) : HelpBar(session, parent, "BrowseStatusBar1") {
    setFixedHeight(kBarHeight);
}

QRect BrowseStatus::HelpPanel() const { return {width() - kHelpWidth, 2, kHelpWidth, kBarHeight - 4}; }

void BrowseStatus::Show(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    update();
}

void BrowseStatus::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setFont(theme::Sans(12));
    p.setPen(theme::kText);
    const QRect hint = rect().adjusted(4, 0, -kHelpWidth - 8, 0);
    p.drawText(hint, Qt::AlignVCenter | Qt::AlignLeft, p.fontMetrics().elidedText(text_, Qt::ElideRight, hint.width()));
    DrawHelpPanel(p);
}

}  // namespace marvolin
