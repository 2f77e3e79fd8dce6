#include "audio/play_commands.h"

#include "audio/play_modes.h"
#include "audio/sample_buffers.h"
#include "audio/transport.h"
#include "core/loops/grouping.h"

namespace marvolin {

namespace {

void PauseRow(Session& s, Row row) {
    BufferOf(s, row).Stop();
    s.Run[row].Paused = True;
    s.World.Screen.ShowPlay(row);
}

void ResumeRow(Session& s, Row row) {
    BufferOf(s, row).Play(LoopPlayFlags(s.Set[row].PlayMode));
    s.Run[row].Paused = False;
    s.World.Screen.ShowPlay(row);
}

void PauseIfPlaying(Session& s, Row row) {
    if (s.Run[row].Loaded != False && s.Run[row].Playing != False) PauseRow(s, row);
}

void ResumeIfLoaded(Session& s, Row row) {
    if (s.Run[row].Loaded != False) ResumeRow(s, row);
}

void CommandControlled(Session& s, PlayCommand command) {
    LoopTrackRun& all = s.Run[kSelectionRow];
    switch (command) {
        case PlayCommand::Stop:
            ForControlled(s, [&](Row row) { LoopStop(s, row); });
            all.Playing = False;
            break;
        case PlayCommand::Play:
            ForControlled(s, [&](Row row) { LoopPlay(s, row, true); });
            all.Playing = True;
            break;
        case PlayCommand::Pause:
            ForControlled(s, [&](Row row) { PauseIfPlaying(s, row); });
            all.Paused = True;
            break;
        case PlayCommand::Resume:
            ForControlled(s, [&](Row row) { ResumeIfLoaded(s, row); });
            all.Paused = False;
            break;
    }
    s.World.Screen.ShowPlay(kSelectionRow);
}

void CommandBand(Session& s, Row row, PlayCommand command) {
    const std::int16_t band = s.Run[row].Band;
    switch (command) {
        case PlayCommand::Stop:
            ForBand(s, band, [&](Row each) { LoopStop(s, each); });
            s.World.Screen.ShowPlay(row);
            break;
        case PlayCommand::Play:
            return ForBand(s, band, [&](Row each) { LoopPlay(s, each, true); });
        case PlayCommand::Pause:
            return ForBand(s, band, [&](Row each) { PauseIfPlaying(s, each); });
        case PlayCommand::Resume:
            return ForBand(s, band, [&](Row each) { ResumeIfLoaded(s, each); });
    }
}

void CommandRow(Session& s, Row row, PlayCommand command) {
    switch (command) {
        case PlayCommand::Stop:
            return LoopStop(s, row);
        case PlayCommand::Play:
            return LoopPlay(s, row, true);
        case PlayCommand::Pause:
            return PauseRow(s, row);
        case PlayCommand::Resume:
            return ResumeRow(s, row);
    }
}

Row FirstControlled(const Session& s) {
    Row row = 0;
    while (row < kLoopTracks && !IsControlled(s, row)) ++row;
    return row;
}

void StopOrPlay(Session& s, Row row, bool stop) {
    if (stop) {
        LoopStop(s, row);
    } else {
        LoopPlay(s, row, true);
    }
}

}  // namespace

void LoopPlayCommand(Session& s, Row row, PlayCommand command) {
    if (row == kSelectionRow) {
        CommandControlled(s, command);
    } else if (s.Run[row].InBand != False) {
        CommandBand(s, row, command);
    } else {
        CommandRow(s, row, command);
    }
}

void TogglePlay(Session& s, Row row) {
    if (row >= 0 && row < kLoopTracks) {
        StopOrPlay(s, row, s.Run[row].Playing != False);
    } else if (row == kSelectionRow) {
        const Row first = FirstControlled(s);
        if (first == kLoopTracks) return;
        const bool stop = s.Run[first].Playing != False;
        ForControlled(s, [&](Row each) { StopOrPlay(s, each, stop); });
    }
}

}  // namespace marvolin
