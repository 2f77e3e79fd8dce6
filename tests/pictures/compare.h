#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace marvolin::test {

/// A picture that is not the same in two folders.
struct Difference {
    std::string Name;
    std::string What;  ///< "only in FOLDER", "size 10x20 and 10x21", "13 pixels in 4,5 6x7"
    friend bool operator==(const Difference&, const Difference&) = default;
};

/// Compares the PNG files of two folders by their names, pixel by pixel; the differences, by name.
/// Raises `std::runtime_error` when a folder is not there or holds no picture.
std::vector<Difference> ComparePictures(const std::string& before, const std::string& after);

}  // namespace marvolin::test
