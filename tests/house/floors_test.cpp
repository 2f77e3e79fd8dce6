#include "house/floors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marvolin::house {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Floors, TheSourcesAreReadWhole) {
    EXPECT_GE(Sources().size(), 20u);
    EXPECT_TRUE(Sources().contains("core/session.h"));
}

TEST(Floors, OnlyTheWindowIncludesTheToolkitAndOnlyAdaptersTheirLibrary) {
    EXPECT_THAT(LibrariesOutOfPlace(Sources()), IsEmpty());
}

TEST(Floors, NoFileIncludesAFloorAboveItsOwn) { EXPECT_THAT(FloorsBroken(Sources()), IsEmpty()); }

TEST(Floors, NoTwoFoldersIncludeEachOtherButAudioAndParameters) { EXPECT_THAT(FoldersInACircle(Sources()), IsEmpty()); }

TEST(Floors, EveryIncludeInQuotesIsAFileOfTheSources) { EXPECT_THAT(IncludesThatLeadNowhere(Sources()), IsEmpty()); }

TEST(Floors, NoFileIncludesItselfDirectlyOrIndirectly) { EXPECT_THAT(Rings(Sources()), IsEmpty()); }

TEST(FloorsCheck, FindsIncludesAndNothingElse) {
    EXPECT_THAT(
        IncludesOf("#include <vector>\n  #  include \"core/a.h\"  // why\n// #include \"core/b.h\"\nint include;\n"),
        ElementsAre("<vector>", "\"core/a.h\""));
}

TEST(FloorsCheck, ReportsAToolkitHeaderBelowTheWindow) {
    for (const char* header : {"<QWidget>", "<QtCore/QString>", "<qtimer.h>", "\"QString\""}) {
        const std::string text = std::string("#include ") + header + "\n";
        EXPECT_EQ(LibrariesOutOfPlace({{"performance/pad/mix_pad.cpp", text}}).size(), 1u) << header;
        EXPECT_THAT(LibrariesOutOfPlace({{"window/tabs/tab_mix_pad.cpp", text}, {"main.cpp", text}}), IsEmpty())
            << header;
    }
}

TEST(FloorsCheck, ReportsALibraryHeaderOutsideItsAdapter) {
    struct Case {
        const char* header;
        const char* adapter;
    };
    for (const Case& c :
         {Case{"<SDL.h>", "audio/openal/sound.cpp"}, Case{"<SDL2/SDL.h>", "performance/joystick/sdl_input.cpp"},
          Case{"<AL/alext.h>", "audio/openal/sound.cpp"}, Case{"<sndfile.h>", "audio/openal/wave_file.cpp"},
          Case{"<liblnk.h>", "browser/lnk_shortcut.cpp"}, Case{"<lua.hpp>", "scripting/lua_library.cpp"},
          Case{"<lua5.4/lualib.h>", "scripting/lua_library.cpp"}}) {
        const std::string text = std::string("#include ") + c.header + "\n";
        EXPECT_EQ(LibrariesOutOfPlace({{"core/routines.cpp", text}}).size(), 1u) << c.header;
        EXPECT_EQ(LibrariesOutOfPlace({{"window/forms/frm_main.cpp", text}}).size(), 1u) << c.header;
        EXPECT_THAT(LibrariesOutOfPlace({{c.adapter, text}}), IsEmpty()) << c.header;
    }
}

TEST(FloorsCheck, ReportsTheLibraryOfTheEditorOutsideItsModule) {
    const std::string text = "#include <Qsci/qsciscintilla.h>\n";
    EXPECT_EQ(LibrariesOutOfPlace({{"window/editor/frm_scripts.cpp", text}}).size(), 1u);
    EXPECT_THAT(LibrariesOutOfPlace({{"window/editor/scintilla/scintilla_view.h", text}}), IsEmpty());
}

TEST(FloorsCheck, ReportsAnIncludeThatGoesUp) {
    EXPECT_THAT(FloorsBroken({{"core/a.cpp", "#include \"audio/device.h\"\n"}}),
                ElementsAre("core/a.cpp: audio/device.h stands above it"));
    EXPECT_THAT(FloorsBroken({{"sequencing/a.h", "#include \"performance/pad/mix_pad.h\"\n"}}), testing::SizeIs(1));
    EXPECT_THAT(FloorsBroken({{"performance/a.h", "#include \"browser/clipboard.h\"\n"}}), testing::SizeIs(1));
    EXPECT_THAT(FloorsBroken({{"instrument/a.cpp", "#include \"window/forms/frm_main.h\"\n"}}), testing::SizeIs(1));
    EXPECT_THAT(FloorsBroken({{"audio/a.cpp", "#include \"parameters/mapping.h\"\n"},
                              {"parameters/a.cpp", "#include \"audio/ds_error.h\"\n"},
                              {"main.cpp", "#include \"window/forms/frm_main.h\"\n"}}),
                IsEmpty());
}

TEST(FloorsCheck, FindsTwoFoldersThatIncludeEachOther) {
    EXPECT_THAT(FoldersInACircle({{"browser/a.cpp", "#include \"persistence/b.h\"\n"},
                                  {"persistence/b.h", ""},
                                  {"persistence/c.cpp", "#include \"browser/d.h\"\n#include \"persistence/b.h\"\n"},
                                  {"audio/e.cpp", "#include \"parameters/f.h\"\n"},
                                  {"parameters/f.cpp", "#include \"audio/g.h\"\n"}}),
                ElementsAre("browser and persistence include each other"));
}

TEST(FloorsCheck, ReportsAFolderWithoutAFloor) {
    EXPECT_THAT(FloorsBroken({{"utilities/a.h", ""}}), ElementsAre("utilities/a.h: its folder has no floor"));
}

TEST(FloorsCheck, ReportsAnIncludeThatLeadsNowhere) {
    EXPECT_THAT(IncludesThatLeadNowhere({{"core/a.h", "#include \"b.h\"\n"}, {"core/b.h", "#include <vector>\n"}}),
                ElementsAre("core/a.h: b.h is no file of the sources"));
}

TEST(FloorsCheck, ReportsARingOnceWhateverItsLength) {
    EXPECT_THAT(Rings({{"core/a.h", "#include \"core/a.h\"\n"}}), ElementsAre("core/a.h -> core/a.h"));
    EXPECT_THAT(Rings({{"core/a.h", "#include \"core/b.h\"\n"},
                       {"core/b.h", "#include \"core/c.h\"\n"},
                       {"core/c.h", "#include \"core/a.h\"\n"},
                       {"core/d.h", "#include \"core/a.h\"\n"}}),
                ElementsAre("core/a.h -> core/b.h -> core/c.h -> core/a.h"));
    EXPECT_THAT(Rings({{"core/a.h", "#include \"core/b.h\"\n#include \"core/c.h\"\n"},
                       {"core/b.h", "#include \"core/c.h\"\n"},
                       {"core/c.h", ""}}),
                IsEmpty());
}

}  // namespace
}  // namespace marvolin::house
