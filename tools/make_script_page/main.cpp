// Writes the page on scripting from the table of its functions: make_script_page FILE.

#include <cstdio>
#include <fstream>

#include "scripting/api/api_page.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_script_page FILE\n");
        return 2;
    }
    std::ofstream page(argv[1], std::ios::binary);
    page << marvolin::ApiPage();
    page.close();
    if (page) return 0;
    std::fprintf(stderr, "make_script_page: cannot write %s\n", argv[1]);
    return 1;
}
