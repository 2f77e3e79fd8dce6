#include "compare.h"

#include <QImage>
#include <QRect>
#include <filesystem>
#include <set>
#include <stdexcept>

namespace marvolin::test {

namespace fs = std::filesystem;

namespace {

std::set<std::string> PicturesIn(const std::string& folder) {
    std::set<std::string> names;
    if (!fs::is_directory(folder)) throw std::runtime_error("no folder " + folder);
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".png") names.insert(entry.path().filename().string());
    }
    if (names.empty()) throw std::runtime_error("no pictures in " + folder);
    return names;
}

QImage Read(const std::string& path) {
    QImage picture(QString::fromStdString(path));
    if (picture.isNull()) throw std::runtime_error("cannot read " + path);
    return picture.convertToFormat(QImage::Format_ARGB32);
}

std::string SizeOf(const QImage& picture) {
    return std::to_string(picture.width()) + "x" + std::to_string(picture.height());
}

/// "" when they are the same.
std::string CompareTwo(const QImage& before, const QImage& after) {
    if (before.size() != after.size()) return "size " + SizeOf(before) + " and " + SizeOf(after);
    if (before == after) return "";  // as nearly all are, and much faster than pixel by pixel
    long pixels = 0;
    QRect where;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) == after.pixel(x, y)) continue;
            ++pixels;
            where |= QRect(x, y, 1, 1);
        }
    }
    if (pixels == 0) return "";
    return std::to_string(pixels) + " pixels in " + std::to_string(where.left()) + "," + std::to_string(where.top()) +
           " " + std::to_string(where.width()) + "x" + std::to_string(where.height());
}

}  // namespace

std::vector<Difference> ComparePictures(const std::string& before, const std::string& after) {
    const std::set<std::string> old = PicturesIn(before);
    const std::set<std::string> now = PicturesIn(after);
    std::set<std::string> all = old;
    all.insert(now.begin(), now.end());
    std::vector<Difference> differences;
    for (const std::string& name : all) {
        std::string what;
        if (!old.contains(name)) {
            what = "only in " + after;
        } else if (!now.contains(name)) {
            what = "only in " + before;
        } else {
            what = CompareTwo(Read(before + "/" + name), Read(after + "/" + name));
        }
        if (!what.empty()) differences.push_back({name, what});
    }
    return differences;
}

}  // namespace marvolin::test
