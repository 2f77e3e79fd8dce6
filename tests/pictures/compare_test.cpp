#include "compare.h"

#include <gtest/gtest.h>

#include <QImage>
#include <stdexcept>

#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

using namespace test;

struct PictureComparison : ::testing::Test {
    static void Write(const TempFolder& folder, const std::string& name, QImage picture, QPoint dot = {-1, -1}) {
        picture.fill(Qt::black);
        if (dot.x() >= 0) picture.setPixelColor(dot, QColor(0, 0, 1));
        picture.save(QString::fromStdString(folder / name));
    }
    std::vector<Difference> Compare() { return ComparePictures(Before.Path(), After.Path()); }
    TempFolder Before;
    TempFolder After;
    QImage Small{4, 3, QImage::Format_RGB32};
};

TEST_F(PictureComparison, SamePicturesHaveNoDifference) {
    Write(Before, "a.png", Small);
    Write(After, "a.png", Small);
    EXPECT_TRUE(Compare().empty());
}

TEST_F(PictureComparison, APixelThatIsTheLeastBitBluerIsFoundWithItsPlace) {
    Write(Before, "a.png", Small);
    Write(After, "a.png", Small, {2, 1});
    EXPECT_EQ(Compare(), (std::vector<Difference>{{"a.png", "1 pixels in 2,1 1x1"}}));
}

TEST_F(PictureComparison, AnotherSizeIsADifference) {
    Write(Before, "a.png", Small);
    Write(After, "a.png", QImage(4, 4, QImage::Format_RGB32));
    EXPECT_EQ(Compare(), (std::vector<Difference>{{"a.png", "size 4x3 and 4x4"}}));
}

TEST_F(PictureComparison, APictureThatIsInOneFolderOnlyIsADifference) {
    Write(Before, "a.png", Small);
    Write(Before, "b.png", Small);
    Write(After, "b.png", Small);
    Write(After, "c.png", Small);
    EXPECT_EQ(Compare(),
              (std::vector<Difference>{{"a.png", "only in " + Before.Path()}, {"c.png", "only in " + After.Path()}}));
}

TEST_F(PictureComparison, FoldersWithoutPicturesAreAnErrorNotAgreement) {
    Write(Before, "a.png", Small);
    EXPECT_THROW(Compare(), std::runtime_error);
    EXPECT_THROW(ComparePictures(Before.Path(), After / "gone"), std::runtime_error);
}

}  // namespace
}  // namespace marvolin
