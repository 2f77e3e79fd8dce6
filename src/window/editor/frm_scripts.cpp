#include "window/editor/frm_scripts.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QUrl>
#include <QVBoxLayout>

#include "scripting/script_file.h"
#include "scripting/script_words.h"
#include "scripting/text_cut.h"
#include "window/controls/text_button.h"
#include "window/descriptions/described.h"
#include "window/editor/console_view.h"
#include "window/editor/event_list.h"
#include "window/editor/find_bar.h"
#include "window/editor/script_status.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr QSize kLeastScripts(760, 420);
constexpr int kScriptsEdge = 8;
constexpr std::size_t kLongestHint = 300;  // bytes

QLabel* Heading(const QString& text) {
    auto* label = new QLabel(text);
    label->setFont(theme::Sans(12));
    theme::SetInk(*label, theme::kQuiet);
    return label;
}

QVBoxLayout* Column(QWidget* owner) {
    auto* column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

/// The script among dragged files; "" when they are something else.
QString DroppedScript(const QMimeData& data) {
    if (data.urls().size() != 1 || !data.urls().first().isLocalFile()) return "";
    const QString path = data.urls().first().toLocalFile();
    return path.endsWith(ToQString(kScriptExtension), Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

FrmScripts::FrmScripts(Session& session, ScriptRoom& room, CodeViewMaker& maker) : s(session), room_(room) {
    Describe(s, *this, "frmScripts");
    setAcceptDrops(true);
    failures_ = room_.LastFailure().Number;
    soon_.setSingleShot(true);
    soon_.callOnTimeout(this, [this] {
        ShowState();
        Console->RefreshInTime();
    });
    auto* column = Column(this);
    toolbar_ = new ScriptToolbar(s, *this, ToolbarActions());
    column->addWidget(toolbar_);
    auto* halves = new QSplitter(Qt::Vertical);
    halves->setChildrenCollapsible(false);
    halves->addWidget(MakeHead(maker));
    halves->addWidget(MakeFoot());
    halves->setStretchFactor(0, 1);
    halves->setStretchFactor(1, 0);
    halves->setSizes({kSize.height(), 0});  // the text gets all that the events leave
    column->addWidget(halves, 1);
    Status = new ScriptStatus(s, this);
    column->addWidget(Status);
    Document = std::make_unique<ScriptDocument>(s, *this, *View,
                                                ScriptDocument::Events{[this] { Open(); }, [this] { Refresh(); },
                                                                       [this](const auto& hint) { ShowHint(hint); }});
    View->OnEdit = [this] { ran_ = false; };
    View->OnChange = [this] { RefreshSoon(); };
    MakeKeys();
    FitScreen();
    Refresh();
}

ScriptToolbar::Actions FrmScripts::ToolbarActions() {
    return {.New = [this] { Document->New(); },
            .Example = [this](int number) { Document->BeginExample(number); },
            .Open = [this] { Document->AskOpen(); },
            .Save = [this] { Document->Save(); },
            .SaveAs = [this] { Document->SaveAs(); },
            .Undo = [this] { View->Undo(); },
            .Redo = [this] { View->Redo(); },
            .Find = [this] { Find->Open(); },
            .Run = [this] { Run(); },
            .Stop = [this] { Stop(); }};
}

QWidget* FrmScripts::MakeHead(CodeViewMaker& maker) {
    auto* head = new QWidget;
    auto* column = Column(head);
    View = maker.Make(head, theme::Digits(14), ScriptWords());
    QWidget& text = View->Widget();
    Describe(s, text, "ScriptText");
    text.setMinimumHeight(80);
    text.installEventFilter(this);
    column->addWidget(&text, 1);
    Find = new FindBar(s, *View, head);
    column->addWidget(Find);
    return head;
}

QWidget* FrmScripts::MakeFoot() {
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(kScriptsEdge, 2, kScriptsEdge, kScriptsEdge);
    row->setSpacing(kScriptsEdge);
    auto* left = new QVBoxLayout;
    left->setSpacing(4);
    auto* title = new QHBoxLayout;
    title->setSpacing(16);
    title->addWidget(Heading("Console"));
    Running = Heading("");
    Running->setTextFormat(Qt::PlainText);
    Running->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long name is cut
    title->addWidget(Running, 1);
    auto* clear = new TextButton(s, nullptr, "ClearConsole", [this] {
        room_.Console.Clear();
        Refresh();
    });
    clear->setFixedSize(52, 22);
    title->addWidget(clear);
    left->addLayout(title);
    Console = new ConsoleView(s, room_.Console, nullptr);
    Console->setMinimumHeight(60);
    left->addWidget(Console, 1);
    row->addLayout(left, 1);
    auto* right = new QVBoxLayout;
    right->setSpacing(4);
    auto* hears = Heading("Hears");
    hears->setMinimumHeight(22);
    right->addWidget(hears);
    Events = new EventList(s, room_, nullptr);
    right->addWidget(Events);
    right->addStretch(1);
    row->addLayout(right);
    return foot;
}

void FrmScripts::MakeKeys() {
    const auto add = [this](const char* key, std::function<void()> act) {
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this,
                std::move(act));  // the window owns it
    };
    add("F3", [this] { Find->Go(Search::Next); });
    add("Shift+F3", [this] { Find->Go(Search::Previous); });
    // In the text Tab is a letter.
    add("Ctrl+Tab", [this] { focusNextChild(); });
    add("Ctrl+Shift+Tab", [this] { focusPreviousChild(); });
}

void FrmScripts::FitScreen() {
    const QSize room = screen()->availableSize() * 9 / 10;
    setMinimumSize(kLeastScripts.boundedTo(room));
    resize(kSize.boundedTo(room));
}

void FrmScripts::Open() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    View->Widget().setFocus();
}

void FrmScripts::Run() {
    View->Mark(0);
    ran_ = true;  // the lines of a failure are those of this text
    const bool taken = room_.Run(View->Text(), Document->Name());
    Refresh();
    ran_ = taken;
    const ScriptError& error = room_.LastFailure().Error;
    if (taken || error.Line <= 0) return;
    View->GoTo({error.Line, std::max(error.Column, 1)});
    View->Widget().setFocus();
}

void FrmScripts::Stop() {
    room_.Stop();
    Refresh();
}

void FrmScripts::RefreshSoon() {
    if (!soon_.isActive()) soon_.start(0);
}

void FrmScripts::Refresh() {
    ShowState();
    Console->Refresh();
}

void FrmScripts::ShowState() {
    setWindowTitle(ToQString("marvolin scripts - " + Document->Name() + "[*]"));
    setWindowModified(View->IsModified());
    toolbar_->Show({.CanUndo = View->CanUndo(), .CanRedo = View->CanRedo(), .Runs = room_.Runs()});
    ShowRunning();
    Status->ShowCaret(View->Caret());
    Events->update();
    ShowFailure();
}

void FrmScripts::ShowRunning() {
    const QString says = room_.Runs() ? ToQString(room_.Name() + " runs") : QString("no script runs");
    if (says == Running->text()) return;
    Running->setText(says);
    theme::SetInk(*Running, room_.Runs() ? theme::kGreen : theme::kQuiet);
}

void FrmScripts::ShowFailure() {
    const ScriptRoom::Failure& failure = room_.LastFailure();
    if (failure.Number == failures_) return;
    failures_ = failure.Number;
    const std::string line = failure.Error.Line > 0 ? "Line " + std::to_string(failure.Error.Line) + ": " : "";
    ShowHint(line + failure.Error.Description);
    if (ran_ && failure.Error.Line > 0) View->Mark(failure.Error.Line);
}

// A path or a description can be long, and the bar has one line.
void FrmScripts::ShowHint(std::string_view hint) { Status->ShowHint(ToQString(Shortened(hint, kLongestHint))); }

void FrmScripts::TakeHintAway(std::string_view hint) {
    if (Status->Hint() == ToQString(Shortened(hint, kLongestHint))) Status->ShowHint("");
}

bool FrmScripts::ShowsNothing() const { return Status->Hint().isEmpty(); }

void FrmScripts::closeEvent(QCloseEvent* event) {
    if (!Document->MayLose()) return event->ignore();
    Document->Discard();
    event->accept();
}

void FrmScripts::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedScript(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void FrmScripts::dropEvent(QDropEvent* event) {
    const QString path = DroppedScript(*event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    // The desktop waits for the drop to end, and the player may be asked.
    QTimer::singleShot(0, this, [this, path] { Document->Open(path.toStdString()); });
}

bool FrmScripts::eventFilter(QObject*, QEvent* event) {
    const bool escape = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (!escape || !Find->isVisible()) return false;
    Find->Close();
    return true;
}

}  // namespace marvolin
