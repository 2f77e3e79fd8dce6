/// \file
/// Writes the first inputs of the fuzz targets: `seed_corpus session FOLDER` or `seed_corpus shortcut FOLDER`.

#include <filesystem>
#include <string>

#include "fakes/file_bytes.h"
#include "fakes/lnk_bytes.h"
#include "persistence/golden.h"

namespace {

using namespace marvolin::test;

void SeedSessions(const std::string& folder) {
    const std::string whole = GoldenSession("/tmp");
    WriteBytes(folder + "/whole.mvn", whole);
    for (const std::size_t part : {20U, 50U, 400U, 1000U, 2000U, 3000U}) {
        WriteBytes(folder + "/cut" + std::to_string(part), whole.substr(0, part));
    }
    for (const bool on : {false, true}) {
        Bytes b;
        PutHeader(b);
        PutSwitches(b, on ? "" : "all");
        PutThreeD(b, on);
        GoldenLoop loop;
        loop.NSteps = 32000;
        loop.StepDuration = 0;
        loop.Channel = 255;
        loop.Pattern = 32000;
        PutLoops(b, {loop, loop}, on);
        WriteBytes(folder + (on ? "/wild3d" : "/wild"), b.TagText("END").Str());
    }
}

void SeedShortcuts(const std::string& folder) {
    WriteBytes(folder + "/both", LnkBytes("C:\\tmp\\Kick.wav", "..\\Kick.wav"));
    WriteBytes(folder + "/local", LnkBytes("C:\\etc\\hostname", ""));
    WriteBytes(folder + "/relative", LnkBytes("", ".\\x.wav"));
    WriteBytes(folder + "/none", LnkBytes("", ""));
    WriteBytes(folder + "/cut", LnkBytes("C:\\tmp\\Kick.wav", "..\\Kick.wav").substr(0, 90));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 1;
    const std::string what = argv[1];
    std::filesystem::create_directories(argv[2]);
    if (what == "session") {
        SeedSessions(argv[2]);
    } else if (what == "shortcut") {
        SeedShortcuts(argv[2]);
    } else {
        return 1;
    }
    return 0;
}
