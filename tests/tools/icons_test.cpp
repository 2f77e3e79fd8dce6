// The icons that the package brings.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "make_icons/drawing.h"

namespace marvolin::icons {
namespace {

constexpr std::array kSubjects{Subject::Program, Subject::Set, Subject::Package, Subject::Script};

QImage Picture(Subject subject, int size) {
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(QByteArray::fromStdString(Draw(subject)));
    EXPECT_TRUE(renderer.isValid()) << NameOf(subject);
    QPainter painter(&picture);
    renderer.render(&painter);
    return picture;
}

/// How far apart two colours are, at most 255.
int Apart(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

TEST(Icons, EachIsAPictureOfItsOwnAtEverySize) {
    for (const int size : {16, 48, 256}) {
        for (std::size_t one = 0; one < kSubjects.size(); ++one) {
            for (std::size_t other = one + 1; other < kSubjects.size(); ++other) {
                const QImage a = Picture(kSubjects[one], size);
                const QImage b = Picture(kSubjects[other], size);
                int differ = 0;
                for (int y = 0; y < size; ++y) {
                    for (int x = 0; x < size; ++x) differ += Apart(a.pixel(x, y), b.pixel(x, y)) > 60 ? 1 : 0;
                }
                EXPECT_GT(differ, size * size / 12) << NameOf(kSubjects[one]) << NameOf(kSubjects[other]) << size;
            }
        }
    }
}

TEST(Icons, TheOneOfTheWindowsIsThatOfTheProgram) {
    std::ifstream file(MARVOLIN_ROOT "/assets/pictures/marvolin.svg");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(text, Draw(Subject::Program));
}

TEST(Icons, AreNamedForTheProgramAndForTheTypesOfItsFiles) {
    EXPECT_EQ(NameOf(Subject::Program), "marvolin");
    EXPECT_EQ(NameOf(Subject::Set), "application-x-marvolin-set");
    EXPECT_EQ(NameOf(Subject::Package), "application-x-marvolin-package");
    EXPECT_EQ(NameOf(Subject::Script), "text-x-marvolin-script");
}

TEST(Icons, TheFourLoopTracksAreToldApartInTheSmallest) {
    const QImage picture = Picture(Subject::Program, 16);
    std::set<int> hues;
    // The middles of the four arcs, in the diagonals of the picture.
    for (const QPoint place : {QPoint(4, 4), QPoint(11, 4), QPoint(11, 11), QPoint(4, 11)}) {
        const QColor colour = picture.pixelColor(place);
        EXPECT_GT(colour.saturation(), 100) << place.x() << "," << place.y();
        hues.insert(colour.hue() / 20);
    }
    EXPECT_EQ(hues.size(), 4U);
}

}  // namespace
}  // namespace marvolin::icons
