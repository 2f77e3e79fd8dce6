#pragma once
/// \file
/// The texts that a control paints.

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <QWidget>
#include <QXmlStreamReader>
#include <string>
#include <vector>

namespace marvolin::test {

/// In the order in which they are painted.
inline std::vector<std::string> PaintedTexts(QWidget& widget) {
    QBuffer drawing;
    QSvgGenerator pen;
    pen.setOutputDevice(&drawing);
    pen.setSize(widget.size());
    {
        QPainter p(&pen);
        widget.render(&p);
    }
    std::vector<std::string> texts;
    QXmlStreamReader reader(drawing.data());
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("text")) {
            texts.push_back(reader.readElementText(QXmlStreamReader::IncludeChildElements).trimmed().toStdString());
        }
    }
    return texts;
}

}  // namespace marvolin::test
