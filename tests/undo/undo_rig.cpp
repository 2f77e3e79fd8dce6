#include "undo/undo_rig.h"

#include <algorithm>
#include <sstream>

#include "core/files/tagged_value.h"
#include "fakes/file_bytes.h"
#include "persistence/quick_load.h"
#include "persistence/session_writer.h"
#include "persistence/settings_section.h"

namespace marvolin::test {

namespace {

// The read-outs limit a step to at least 1 when they show it.
void TellSet(std::ostream& out, const LoopTrackSet& set) {
    out << set.FileName << ' ' << set.Hz << ' ' << set.SampleRate << ' ' << set.Vol << ' ' << set.Pan << ' '
        << set.Selected << ' ' << set.Thinnable << ' ' << std::max(set.StepDuration, 1) << ' ' << set.Swing << ' '
        << set.BeatStart << ' ' << set.Length << ' ' << set.PlayMode << ' ' << set.NSteps << ' ' << set.PositionX << ' '
        << set.PositionY << ' ' << int{set.Channel} << " |";
    for (const PatternBlock& block : set.Pattern) {
        out << '/';
        for (int step = 0; step <= kPatternSteps; ++step) out << ' ' << block[step];
    }
}

}  // namespace

UndoRig::UndoRig() : StoredInstrument({"Primary Sound Driver", "Second Device", "No Sound"}) {
    std::uint8_t first = 1;
    for (const char* name : {"bells.wav", "drum.wav", "hum.wav", "rain.wav", "wind.wav"}) {
        WriteBytes(Folder / name, name);
        FakeSample sample;
        sample.Bytes.resize(4000 + 400U * first);
        for (std::size_t i = 0; i < sample.Bytes.size(); ++i)
            sample.Bytes[i] = static_cast<std::uint8_t>(first * i / 4);
        Sound.Samples[Folder / name] = sample;
        ++first;
    }
    Desk.TempFile = Folder / "VBN1.tmp";
    s.ActiveTab = kPatternTab;
    StartUndo(s);
}

bool UndoRig::Save(const std::string& name) {
    const bool saved = SaveSession(s, Folder / name, LoopsSaved::All, AllSwitches());
    UpdateQuickLoad(s);
    return saved;
}

std::string UndoRig::Portrait(Knobs knobs) {
    std::ostringstream out;
    const bool told = knobs == Knobs::Told;
    for (Row row = 0; row <= kSelectionRow; ++row) {
        const LoopTrackRun& run = s.Run[row];
        LoopTrackSet set = s.Set[row];
        if (!told) set.Vol = set.Pan = set.Hz = 0;
        const bool runs = run.Playing != False || run.InHand.Playing;  // step and cursor go on by themselves
        out << RowLetter(row) << ' ';
        TellSet(out, set);
        out << "\n  loaded " << run.Loaded << " playing " << run.Playing << " paused " << run.Paused << " reversed "
            << (run.Loaded != False && run.Reversed != False) << " waits " << run.InHand.FileName << ' '
            << run.InHand.BeatStart << run.InHand.Playing << run.InHand.Paused << run.InHand.Sounds
            << (run.InHand.Sounds && run.InHand.Loops) << run.InHand.Reversed << (runs ? 0 : run.InHand.Cursor)
            << " step " << (runs ? 0 : run.Step) << ' ' << (runs ? 0 : run.StepElapsed) << " start "
            << run.BeatStartBytes << " band " << run.InBand << run.Band << " line " << (told ? s.SndDisp[row].Line : 0)
            << " level " << (told ? s.SndDisp[row].Level : 0);
        if (run.Buffer) {
            const FakeSound::Buffer& buffer = Buffer(row);
            long weighed = 0;
            for (std::size_t i = 0; i < buffer.Sample->Bytes.size(); ++i) {
                weighed += static_cast<long>(i + 1) * buffer.Sample->Bytes[i];
            }
            out << " bytes " << weighed << " status " << buffer.Status;
            if (!runs) out << " at " << buffer.Position;
            // The steps of a pattern colour the values, also of a row that has been stopped.
            const bool coloured = !told || run.Playing == False || s.Set[row].PlayMode >= kTrack;
            if (!coloured) out << " vol " << buffer.Volume << " hz " << buffer.Frequency;
            if (!coloured && !s.Use3D) out << " pan " << buffer.Pan;
        }
        out << '\n';
    }
    for (const Band& band : s.BandTable) out << band.First << '-' << band.Last << (band.Controlled != False) << ' ';
    out << s.SelectionControlled << "\nthin " << s.ThinList << "\n";
    for (const auto& history : s.History) {
        for (const std::string& path : history) out << path << ' ';
        out << '\n';
    }
    out << "macro " << s.PosMacro << " wires " << s.SetChannelChoice << "\nclips";
    for (const LoopTrackSet& clip : s.Clips.ClipStore) TellSet(out << "\n  ", clip);
    for (const std::string& text : s.Clips.List) out << ' ' << text;
    out << " top " << s.Clips.ClipTop << "\npad " << s.PadTypeIndex << ' ' << s.TwistPosition;
    for (const PadRecord& pad : s.PadTable) out << ' ' << pad.X << ',' << pad.Y;
    for (int channel = 1; channel <= kChannels; ++channel) {
        out << ' ' << s.ChannelVol[channel] << '/' << s.ChannelPan[channel] << '/' << s.ChannelHz[channel];
    }
    out << "\n3d " << s.Use3D << ' ' << s.RollOffValue << ' ' << s.MapSize << "\nset " << s.CurrentFolder << ' '
        << s.CurrentFile << ' ' << s.DialogueFile << ' ' << s.Title << ' ' << s.SaveItEnabled << "\nsettings";
    const KeyedTable settings = CollectSettings(s);
    for (const auto& [key, value] : settings.Pairs()) out << ' ' << key << '=' << AsText(value);
    out << "\nbins";
    for (const SampleBin& bin : s.Bins) out << ' ' << bin.Folder << ' ' << bin.Destination << ' ' << bin.ClickPlay;
    return out.str();
}

}  // namespace marvolin::test
