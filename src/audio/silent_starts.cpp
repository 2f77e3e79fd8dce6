#include "audio/silent_starts.h"

#include "core/routines.h"

namespace marvolin {

std::array<bool, kLoopTracks> PlayingRows(const Session& s) {
    std::array<bool, kLoopTracks> playing{};
    for (Row row = 0; row < kLoopTracks; ++row) playing[static_cast<std::size_t>(row)] = s.Run[row].Playing != False;
    return playing;
}

void TellSilentStarts(Session& s, const std::array<bool, kLoopTracks>& before) {
    std::vector<Row> silent;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const bool started = s.Run[row].Playing != False && !before[static_cast<std::size_t>(row)];
        if (started && s.Set[row].Vol == 0 && s.Run[row].FadeState == kNoFade) silent.push_back(row);
    }
    if (silent.empty()) return;
    const char* verb = silent.size() == 1 ? " plays" : " play";
    ShowStatus(s, LettersOf(silent) + verb + " at volume 0: " + HowItFadesIn(silent.front()));
}

std::string LettersOf(const std::vector<Row>& rows) {
    std::string letters;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0) letters += i + 1 == rows.size() ? " & " : ", ";
        letters += RowLetter(rows[i]);
    }
    return letters;
}

std::string HowItFadesIn(Row row) {
    const std::string letter(1, RowLetter(row));
    return "Shift+" + letter + " fades " + letter + " in";
}

}  // namespace marvolin
