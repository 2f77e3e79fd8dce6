// Writes the sample library that comes with the instrument into the folder named on the command line.

#include <exception>
#include <iostream>

#include "library.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_samples FOLDER\n";
        return 2;
    }
    try {
        marvolin::samples::WriteLibrary(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "make_samples: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
