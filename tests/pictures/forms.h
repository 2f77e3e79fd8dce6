#pragma once
/// \file
/// The pictures of each form. Each procedure shows its form over sessions of its own.

#include "album.h"

namespace marvolin::test {

/// The main window, empty and playing, with each tab and sub-tab, as Mini, with each pad type, and the lists it opens.
void PictureMainWindow(Album& album);
/// The browser's pages, its folder tree, and the lists it opens.
void PictureBrowser(Album& album);
/// The window of scripts with a text, a wrong line, the search, what it lists and tells, and in a small size.
void PictureScripts(Album& album);
/// Save/Open with its file dialogues, the splash, the question at the start, message boxes.
void PictureDialogues(Album& album);

}  // namespace marvolin::test
