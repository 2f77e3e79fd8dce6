#pragma once
/// \file
/// A session in a fixed state, for pictures that are the same each time they are taken.

#include <string>

#include "core/session.h"
#include "fakes/fake_services.h"
#include "window/toolkit/qt_display.h"

namespace marvolin::test {

/// The folder of the samples and sessions that the pictures show. It has the same path each time, since paths are seen.
inline constexpr const char* kPictureFolder = "/tmp/marvolin-pictures";

/// Writes the folder from nothing: three folders of samples, sessions, the player's home. Times and sizes are fixed.
void WritePictureFolder();
void RemovePictureFolder();

/// A session on fakes. No date, clock or chance is in it.
struct Scene : FakeServices {
    Scene();
    /// Four LoopTracks, three of them filled, two playing; bands, selection, patterns, clips, histories, bins.
    void Play();

    QtDisplay Screen;
    Session s{For(Screen)};

private:
    void Fill(Row row, const std::string& path, int beats);
    void SetRows();
    void SetPatterns();
    void SetBands();
    void SetMap();
    void SetLists();
};

}  // namespace marvolin::test
