#include "persistence/loop_record.h"

namespace marvolin {

void WriteLoopTrackSet(RecordWriter& file, const LoopTrackSet& set) {
    file.PutString(set.FileName);
    file.PutInteger(set.Hz);
    file.PutLong(set.SampleRate);
    file.PutInteger(set.Vol);
    file.PutInteger(set.Pan);
    file.PutInteger(set.Selected);
    file.PutInteger(set.Thinnable);
    file.PutLong(set.StepDuration);
    file.PutLong(set.Swing);
    file.PutLong(set.BeatStart);
    file.PutLong(set.BufferBytes);
    file.PutDouble(set.Length);
    file.PutLong(set.AvgBytesPerSec);
    file.PutInteger(set.PlayMode);
    file.PutInteger(set.NSteps);
    for (const PatternBlock& pattern : set.Pattern) {
        for (const std::int16_t value : pattern) file.PutInteger(value);
    }
    file.PutSingle(set.PositionX);
    file.PutSingle(set.PositionY);
    file.PutByte(set.Channel);
}

LoopTrackSet ReadLoopTrackSet(RecordReader& file) {
    LoopTrackSet set;
    set.FileName = file.GetString();
    set.Hz = file.GetInteger();
    set.SampleRate = file.GetLong();
    set.Vol = file.GetInteger();
    set.Pan = file.GetInteger();
    set.Selected = file.GetInteger();
    set.Thinnable = file.GetInteger();
    set.StepDuration = file.GetLong();
    set.Swing = file.GetLong();
    set.BeatStart = file.GetLong();
    set.BufferBytes = file.GetLong();
    set.Length = file.GetDouble();
    set.AvgBytesPerSec = file.GetLong();
    set.PlayMode = file.GetInteger();
    set.NSteps = file.GetInteger();
    for (PatternBlock& pattern : set.Pattern) {
        for (std::int16_t& value : pattern) value = file.GetInteger();
    }
    set.PositionX = file.GetSingle();
    set.PositionY = file.GetSingle();
    set.Channel = file.GetByte();
    return set;
}

SavedLoop ReadSavedLoop(RecordReader& file) {
    SavedLoop loop;
    loop.Index = file.GetInteger();
    loop.Set = ReadLoopTrackSet(file);
    loop.WasPlaying = file.GetInteger();
    return loop;
}

}  // namespace marvolin
