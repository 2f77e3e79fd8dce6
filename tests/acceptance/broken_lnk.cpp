/// \file
/// What the program is bound to when it is loaded, and nothing else of the library of shortcut files.

extern "C" {
int liblnk_file_get_utf8_local_path_size();
int liblnk_file_get_utf8_local_path_size() { return 0; }
int liblnk_file_get_utf8_local_path();
int liblnk_file_get_utf8_local_path() { return 0; }
int liblnk_file_get_utf8_relative_path_size();
int liblnk_file_get_utf8_relative_path_size() { return 0; }
int liblnk_file_get_utf8_relative_path();
int liblnk_file_get_utf8_relative_path() { return 0; }
}
