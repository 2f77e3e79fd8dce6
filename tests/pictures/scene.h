#pragma once
/// \file
/// A session in a fixed state, for pictures that are the same each time they are taken.

#include <string>

#include "core/session.h"
#include "fakes/fake_sound.h"
#include "fakes/fake_world.h"
#include "window/toolkit/qt_display.h"

namespace marvolin::test {

/// The folder of the samples and sessions that the pictures show. It has the same path each time, since paths are seen.
inline constexpr const char* kPictureFolder = "/tmp/marvolin-pictures";

/// Writes the folder from nothing: three folders of samples, sessions, the player's home. Times and sizes are fixed.
void WritePictureFolder();
void RemovePictureFolder();

/// A session on fakes. No date, clock or chance is in it.
struct Scene {
    Scene();
    /// Four LoopTracks, three of them filled, two playing; bands, selection, patterns, clips, histories, bins.
    void Play();

    FakeSound Sound;
    QtDisplay Screen;
    FakeDesktop Desk;
    FakeWindows Forms;
    FakeRandom Chance;
    FakeTimers Timers;
    FakeScripts Scripts;
    FakeStore Store;
    FakeJoystick Stick;
    Session s{Services{Screen, Desk, Forms, Chance, Timers, Scripts, Store,
                       [this] { return std::make_unique<FakeDirectX>(Sound); },
                       [this] { return std::make_unique<FakeInput>(Stick); }}};

private:
    void Fill(Row row, const std::string& path, int beats);
    void SetRows();
    void SetPatterns();
    void SetBands();
    void SetMap();
    void SetLists();
};

}  // namespace marvolin::test
