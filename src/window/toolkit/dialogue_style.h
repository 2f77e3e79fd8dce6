#pragma once
/// \file
/// Gives the toolkit's own dialogues the look of the window: icons are drawn, so that they are sharp at every scale,
/// buttons have no icons, and the arrow of a chosen row of a tree is as dark as its text.

#include <QAbstractFileIconProvider>
#include <QProxyStyle>

namespace marvolin {

class DialogueStyle : public QProxyStyle {
public:
    DialogueStyle();
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
};

/// Icons and type names of folders and files. Decides by the name alone: the toolkit's own provider opens each file
/// that changes, on the user-interface thread.
class FilePictures : public QAbstractFileIconProvider {
public:
    QIcon icon(IconType type) const override;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;
};

}  // namespace marvolin
