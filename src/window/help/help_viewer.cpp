#include "window/help/help_viewer.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include "core/help.h"
#include "window/descriptions/described.h"
#include "window/popups/report_box.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/text_hold.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr QSize kHelpSize(820, 620);
constexpr int kContentsWidth = 240;
constexpr int kGap = 12;  // pixels
constexpr int kFileRole = Qt::UserRole;
constexpr const char* kPageSheet = R"(
body { color: #e6e8eb; }
h1 { color: #ffffff; font-size: x-large; }
h2 { color: #ffc94d; font-size: large; margin-top: 14px; }
h3 { color: #ffffff; font-size: medium; }
a { color: #ffc94d; text-decoration: none; }
.quiet { color: #b4bbc4; }
.key { color: #ffffff; font-weight: 600; }
.evening { color: #cfe8d4; }
code, pre { color: #cfe8d4; font-family: monospace; }
td { padding: 3px 12px 3px 0px; }
)";

}  // namespace

HelpViewer::HelpViewer() {
    Describe(*this, "frmHelp");
    setWindowTitle(ToQString(kHelpTitle));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(10, 10, 10, 10);
    column->addWidget(MakeBar());
    auto* halves = new QSplitter;
    tree_ = new QTreeWidget;
    Describe(*tree_, "HelpTree");
    tree_->header()->hide();
    text_ = new HelpText;
    Describe(*text_, "HelpText");
    text_->setOpenLinks(false);
    LetGoWithoutButton(*text_);
    text_->document()->setDefaultStyleSheet(kPageSheet);
    text_->document()->setDocumentMargin(14);
    halves->addWidget(tree_);
    halves->addWidget(text_);
    halves->setSizes({kContentsWidth, kHelpSize.width() - kContentsWidth});
    halves->setStretchFactor(1, 1);
    column->addWidget(halves, 1);
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { Go(link.toString()); });
    connect(text_, &QTextBrowser::sourceChanged, this, [this] { ShowWhere(); });
    connect(text_, &QTextBrowser::historyChanged, this, [this] { ShowWhere(); });  // comes after it
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        const QString file = item == nullptr ? QString() : item->data(0, kFileRole).toString();
        if (!file.isEmpty() && file != text_->source().fileName()) Go(file);
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, find_, [this] {
        find_->setFocus(Qt::ShortcutFocusReason);
        find_->selectAll();
    });
    connect(new QShortcut(QKeySequence::ZoomIn, this), &QShortcut::activated, this, [this] { SetTextSize(size_ + 2); });
    connect(new QShortcut(QKeySequence::ZoomOut, this), &QShortcut::activated, this,
            [this] { SetTextSize(size_ - 2); });
    connect(new QShortcut(QKeySequence("Alt+Left"), this), &QShortcut::activated, this, [this] { text_->backward(); });
    connect(new QShortcut(QKeySequence("Alt+Right"), this), &QShortcut::activated, this, [this] { text_->forward(); });
    SetTextSize(size_);
}

QToolButton* HelpViewer::AddButton(QWidget& bar, const char* name, std::function<void()> click) {
    auto* button = new QToolButton;
    Describe(*button, name);
    button->setFont(theme::Sans(13));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMinimumSize(30, 28);
    connect(button, &QToolButton::clicked, this, [click = std::move(click)] { click(); });
    bar.layout()->addWidget(button);
    return button;
}

QWidget* HelpViewer::MakeBar() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    AddButton(*bar, "HelpContents", [this] { Go(pages_->All().front().File); });
    back_ = AddButton(*bar, "HelpBack", [this] { text_->backward(); });
    forward_ = AddButton(*bar, "HelpForward", [this] { text_->forward(); });
    AddButton(*bar, "HelpSmaller", [this] { SetTextSize(size_ - 2); });
    AddButton(*bar, "HelpLarger", [this] { SetTextSize(size_ + 2); });
    find_ = new QLineEdit;
    Describe(*find_, "HelpFind");
    find_->setPlaceholderText("Find in all pages");
    find_->setClearButtonEnabled(true);
    // A part of the toolkit's field, which comes without a name.
    for (auto* part : find_->findChildren<QToolButton*>()) part->setAccessibleName("Empty the search");
    row->addWidget(find_, 1);
    connect(find_, &QLineEdit::textChanged, this, [this](const QString& text) { Find(text); });
    return bar;
}

void HelpViewer::SetTextSize(int pixels) {
    size_ = qBound(kSmallestText, pixels, kLargestText);
    QFont font = theme::Sans(size_);
    text_->document()->setDefaultFont(font);
    tree_->setFont(theme::Sans(qMin(size_, 17)));
}

void HelpViewer::FillContents() {
    tree_->clear();
    QTreeWidgetItem* chapter = nullptr;
    for (const HelpPage& page : pages_->All()) {
        if (chapter == nullptr || chapter->text(0) != page.Chapter) {
            chapter = new QTreeWidgetItem(tree_, {page.Chapter});  // the tree owns its entries
            chapter->setFlags(Qt::ItemIsEnabled);
        }
        auto* entry = new QTreeWidgetItem(chapter, {page.Title});
        entry->setData(0, kFileRole, page.File);
    }
}

void HelpViewer::Open(const std::string& helpFile, std::int32_t topic, const QWidget* avoid) {
    auto pages = std::make_unique<HelpPages>(helpFile);
    search_.reset();
    text_->Read(*pages);
    pages_ = std::move(pages);
    search_ = std::make_unique<HelpSearch>(
        *pages_, [this](const HelpPage& page) { AddFound(page); }, [this] { TellNothingFound(); });
    {
        const QSignalBlocker quiet(find_);
        find_->clear();  // the words were about another question
    }
    FillContents();
    const HelpPage* page = pages_->Of(topic);
    Go(page == nullptr ? pages_->All().front().File : page->File);
    if (!isVisible()) Place(avoid);
    winId();  // makes the window that gets an owner
    // A dialogue that waits for its answer would block a window that does not belong to it.
    const QWidget* dialogue = QApplication::activeModalWidget();
    windowHandle()->setTransientParent(dialogue == nullptr ? nullptr : dialogue->window()->windowHandle());
    show();
    raise();
    activateWindow();
    text_->setFocus();                        // the arrows and Page Down read on
    text_->verticalScrollBar()->setValue(0);  // the page has got its width only now
    ShowWhere();
}

void HelpViewer::Go(const QString& file) {
    const QUrl page(file);
    if (text_->source() == page) {
        text_->reload();  // it may have been put back
    } else {
        text_->setSource(page);
    }
    if (!file.contains('#')) text_->verticalScrollBar()->setValue(0);
    MarkFound();
}

// The contents show where the page is; the buttons whether there is a way back.
void HelpViewer::ShowWhere() {
    back_->setEnabled(text_->isBackwardAvailable());
    forward_->setEnabled(text_->isForwardAvailable());
    const QString file = text_->source().fileName();
    for (QTreeWidgetItemIterator at(tree_); *at != nullptr; ++at) {
        if ((*at)->data(0, kFileRole).toString() != file) continue;
        const QSignalBlocker quiet(tree_);
        if ((*at)->parent() != nullptr) (*at)->parent()->setExpanded(true);
        tree_->setCurrentItem(*at);
        tree_->scrollToItem(*at);
        return;
    }
}

void HelpViewer::Find(const QString& text) {
    search_->Start(text);
    if (text.trimmed().isEmpty()) {
        FillContents();
        ShowWhere();
        MarkFound();
        return;
    }
    const QSignalBlocker quiet(tree_);
    tree_->clear();
    auto* found = new QTreeWidgetItem(tree_, {"Found"});
    found->setFlags(Qt::ItemIsEnabled);
    found->setExpanded(true);
    MarkFound();
}

void HelpViewer::AddFound(const HelpPage& page) {
    QTreeWidgetItem* found = tree_->topLevelItem(0);
    if (found == nullptr) return;
    auto* entry = new QTreeWidgetItem(found, {page.Title});
    entry->setData(0, kFileRole, page.File);
    const int pages = found->childCount();
    found->setText(0, QString(pages == 1 ? "Found on %1 page" : "Found on %1 pages").arg(pages));
}

void HelpViewer::TellNothingFound() {
    QTreeWidgetItem* found = tree_->topLevelItem(0);
    if (found != nullptr && found->childCount() == 0) found->setText(0, "Found on no page");
}

// Every word that is looked for stands out in the page.
void HelpViewer::MarkFound() { text_->Mark(find_->text().split(' ', Qt::SkipEmptyParts)); }

// Beside the main window where the screen has room for both, and never larger than the screen.
void HelpViewer::Place(const QWidget* avoid) {
    const QScreen* at = avoid != nullptr ? avoid->screen() : QGuiApplication::primaryScreen();
    const QRect area = at->availableGeometry();
    resize(kHelpSize.boundedTo(area.size() - QSize(2 * kGap, 4 * kGap)));
    const QRect keep = avoid != nullptr && avoid->isVisible() ? avoid->frameGeometry() : QRect();
    const QPoint place = PlaceClearOf(keep, area, size(),
                                      {{keep.right() + kGap, qMax(area.top() + kGap, keep.top())},
                                       {keep.left() - kGap - width(), qMax(area.top() + kGap, keep.top())},
                                       {keep.left(), keep.bottom() + kGap}});
    move(qMax(area.left(), place.x()), qMax(area.top() + 2 * kGap, place.y()));
}

void HelpViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    if (find_->text().isEmpty()) {
        close();
    } else {
        find_->clear();
    }
}

}  // namespace marvolin
