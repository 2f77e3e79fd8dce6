#pragma once
/// \file
/// The toolkit's own dialogues in the window's look: pictures are drawn, so that they are sharp at every scale, and
/// buttons carry text alone.

#include <QAbstractFileIconProvider>
#include <QProxyStyle>

namespace marvolin {

class DialogueStyle : public QProxyStyle {
public:
    DialogueStyle();
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
};

/// Pictures of folders and files, and what they are called. Looks at names alone: the toolkit's own provider reads into
/// each file that changes, on the thread of the window.
class FilePictures : public QAbstractFileIconProvider {
public:
    QIcon icon(IconType type) const override;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;
};

}  // namespace marvolin
