#pragma once

#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <QWidget>

#include "core/session.h"
#include "window/help/help_bar.h"
#include "window/toolkit/hint_window.h"

namespace marvolin {

class BrowseBins;
class BrowseClips;
class BrowseStatus;

/// `frmBrowse`: the sample bins and the clipboard. Until the program ends, closing it only hides it.
class FrmBrowse : public QWidget, public HintWindow {
public:
    static constexpr QSize kSize{780, 520};  ///< less where there is no room
    static constexpr QSize kLeastSize{620, 420};

    explicit FrmBrowse(Session& session);
    void ShowHint(std::string_view hint) override;
    void TakeHintAway(std::string_view hint) override;
    bool ShowsNothing() const override;
    /// The next close ends the form instead of hiding it.
    void AllowClose() { mayClose_ = true; }

    BrowseBins* Bins = nullptr;    // owned by the toolkit
    BrowseClips* Clips = nullptr;  // owned by the toolkit

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Rescan();

    Session& s;
    QTabBar* tabs_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    BrowseStatus* status_ = nullptr;
    QTimer check_;  // runs while files of the bins are compared with what is shown of them
    bool mayClose_ = false;
};

/// `StatusBar1` of the browser.
class BrowseStatus : public HelpBar {
public:
    BrowseStatus(Session& session, QWidget* parent);
    void Show(const QString& text);
    QString Text() const { return text_; }
    QRect HelpPanel() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
};

}  // namespace marvolin
