// Writes the icons of the program and of its files as SVG and in the usual sizes: make_icons FOLDER, which becomes
// FOLDER/scalable/apps/marvolin.svg, FOLDER/16x16/apps/marvolin.png, and so on.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "make_icons/drawing.h"

namespace {

using namespace marvolin;

constexpr std::array kSizes{16, 22, 24, 32, 48, 64, 96, 128, 256, 512};

bool WriteText(const QString& path, const QByteArray& text) {
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

bool WritePicture(const QString& path, const QByteArray& drawing, int size) {
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QSvgRenderer renderer(drawing);
        QPainter painter(&picture);
        renderer.render(&painter);
        if (!renderer.isValid()) return false;
    }
    return QDir().mkpath(QFileInfo(path).path()) && picture.save(path);
}

bool WriteIcon(const QString& folder, icons::Subject subject) {
    const QString kind = subject == icons::Subject::Program ? "apps" : "mimetypes";
    const QString name = QString::fromStdString(icons::NameOf(subject));
    const QByteArray drawing = QByteArray::fromStdString(icons::Draw(subject));
    bool done = WriteText(QString("%1/scalable/%2/%3.svg").arg(folder, kind, name), drawing);
    for (const int size : kSizes) {
        done = WritePicture(QString("%1/%2x%2/%3/%4.png").arg(folder).arg(size).arg(kind, name), drawing, size) && done;
    }
    return done;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_icons FOLDER\n");
        return EXIT_FAILURE;
    }
    for (const icons::Subject subject :
         {icons::Subject::Program, icons::Subject::Set, icons::Subject::Package, icons::Subject::Script}) {
        if (WriteIcon(QString::fromLocal8Bit(argv[1]), subject)) continue;
        std::fprintf(stderr, "make_icons: %s cannot be written\n", icons::NameOf(subject).c_str());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
