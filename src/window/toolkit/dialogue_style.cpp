#include "window/toolkit/dialogue_style.h"

#include <QFileInfo>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QTreeView>
#include <optional>

#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

enum class Glyph { Back, Forward, Up, NewFolder, Tiles, Lines, Folder, File, Computer, Ask, Warn };

constexpr double kUnit = 16;  // side of the square on which glyphs are drawn

void DrawFolder(QPainter& p) {
    p.drawPolygon(QPolygonF{{1.5, 3.5}, {6, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 13}, {1.5, 13}});
}

/// A disc with a sign, for boxes that ask or warn.
void DrawSign(QPainter& p, const QColor& ground, const QString& sign) {
    p.setPen(Qt::NoPen);
    p.setBrush(ground);
    p.drawEllipse(QRectF(1, 1, 14, 14));
    p.setPen(theme::InkOn(ground));
    p.setFont(theme::Sans(11, QFont::Bold));
    p.drawText(QRectF(0, 0, kUnit, kUnit), Qt::AlignCenter, sign);
}

void DrawGlyph(QPainter& p, Glyph glyph) {
    switch (glyph) {
        case Glyph::Back:
            p.drawPolyline(QPolygonF{{10, 3.5}, {5.5, 8}, {10, 12.5}});
            return;
        case Glyph::Forward:
            p.drawPolyline(QPolygonF{{6, 3.5}, {10.5, 8}, {6, 12.5}});
            return;
        case Glyph::Up:
            p.drawPolyline(QPolygonF{{4, 7}, {8, 3}, {12, 7}});
            p.drawLine(QPointF(8, 3.5), QPointF(8, 13));
            return;
        case Glyph::NewFolder:
            DrawFolder(p);
            p.drawLine(QPointF(8, 7.2), QPointF(8, 11.4));
            p.drawLine(QPointF(5.9, 9.3), QPointF(10.1, 9.3));
            return;
        case Glyph::Tiles:
            for (double x : {2.5, 9.0}) {
                for (double y : {2.5, 9.0}) p.drawRect(QRectF(x, y, 4.5, 4.5));
            }
            return;
        case Glyph::Lines:
            for (double y : {3.5, 8.0, 12.5}) p.drawLine(QPointF(2.5, y), QPointF(13.5, y));
            return;
        case Glyph::Folder:
            DrawFolder(p);
            return;
        case Glyph::File:
            p.drawPolygon(QPolygonF{{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}});
            p.drawPolyline(QPolygonF{{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}});
            return;
        case Glyph::Computer:
            p.drawRoundedRect(QRectF(1.5, 2.5, 13, 8.5), 1, 1);
            p.drawLine(QPointF(5, 13.5), QPointF(11, 13.5));
            return;
        case Glyph::Ask:
            return DrawSign(p, theme::kAccent, "?");
        case Glyph::Warn:
            return DrawSign(p, theme::kRed, "!");
    }
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(Glyph glyph) : glyph_(glyph) {}
    QIconEngine* clone() const override { return new GlyphEngine(glyph_); }  // the icon owns it
    void paint(QPainter* p, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        p->save();
        p->setRenderHint(QPainter::Antialiasing);
        p->translate(rect.topLeft());
        p->scale(rect.width() / kUnit, rect.height() / kUnit);
        const QColor ink = mode == QIcon::Selected   ? theme::kWindow
                           : mode == QIcon::Disabled ? QColor(0x6c, 0x74, 0x80)
                                                     : theme::kText;
        p->setPen(QPen(ink, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        DrawGlyph(*p, glyph_);
        p->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter p(&picture);
        paint(&p, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

private:
    Glyph glyph_;
};

QIcon GlyphIcon(Glyph glyph) { return QIcon(new GlyphEngine(glyph)); }

std::optional<Glyph> GlyphOf(QStyle::StandardPixmap picture) {
    switch (picture) {
        case QStyle::SP_FileDialogBack:
            return Glyph::Back;
        case QStyle::SP_FileDialogToParent:
            return Glyph::Up;
        case QStyle::SP_FileDialogNewFolder:
            return Glyph::NewFolder;
        case QStyle::SP_FileDialogListView:
            return Glyph::Tiles;
        case QStyle::SP_FileDialogDetailedView:
            return Glyph::Lines;
        case QStyle::SP_ArrowBack:
            return Glyph::Back;
        case QStyle::SP_ArrowForward:
            return Glyph::Forward;
        case QStyle::SP_MessageBoxQuestion:
            return Glyph::Ask;
        case QStyle::SP_MessageBoxCritical:
            return Glyph::Warn;
        default:
            return std::nullopt;
    }
}

}  // namespace

DialogueStyle::DialogueStyle() : QProxyStyle("Fusion") {}

int DialogueStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void DialogueStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    if (element != PE_IndicatorBranch) return QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!option->state.testFlag(State_Children)) return;
    const auto* tree = qobject_cast<const QTreeView*>(widget);
    const QPoint middle = option->rect.center();
    const bool chosen = tree != nullptr && tree->selectionModel()->isSelected(tree->indexAt(middle));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(middle);
    if (option->state.testFlag(State_Open)) painter->rotate(90);
    painter->setPen(Qt::NoPen);
    painter->setBrush(chosen ? theme::kWindow : theme::kQuiet);
    painter->drawPolygon(QPolygonF{{-2.5, -4}, {3, 0}, {-2.5, 4}});
    painter->restore();
}

QIcon DialogueStyle::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
    if (const auto glyph = GlyphOf(picture)) return GlyphIcon(*glyph);
    return QProxyStyle::standardIcon(picture, option, widget);
}

QIcon FilePictures::icon(IconType type) const {
    if (type == Computer || type == Desktop || type == Network) return GlyphIcon(Glyph::Computer);
    return GlyphIcon(type == File ? Glyph::File : Glyph::Folder);
}

QIcon FilePictures::icon(const QFileInfo& file) const {
    return GlyphIcon(file.isRoot() ? Glyph::Computer : file.isDir() ? Glyph::Folder : Glyph::File);
}

QString FilePictures::type(const QFileInfo& file) const {
    if (file.isRoot()) return "Drive";
    if (file.isDir()) return "Folder";
    const QString ending = file.suffix();
    return ending.isEmpty() ? QString("File") : ending.toUpper() + " File";
}

}  // namespace marvolin
