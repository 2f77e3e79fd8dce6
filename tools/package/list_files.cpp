// Writes the list of what comes with the program into its folder, which makes it an installed one: list_files FOLDER.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "core/files/file_list.h"
#include "core/files/new_file.h"
#include "core/files/paths.h"

int main(int argc, char** argv) {
    using namespace marvolin;
    if (argc != 2) {
        std::fprintf(stderr, "usage: list_files FOLDER\n");
        return EXIT_FAILURE;
    }
    try {
        NewFile file(JoinPath(argv[1], std::string(kListFile)));
        file.Write(ListText(ListFolder(argv[1])));
        file.TakeName();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "list_files: %s: %s\n", argv[1], e.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
