#include <array>
#include <filesystem>

#include "gestures.h"

namespace marvolin::hand {

namespace {

constexpr std::uint32_t kRefused = sound_error::kGeneric;

const std::vector<std::string>& AllDrivers() {
    static const std::vector<std::string> drivers{"Primary Sound Driver", "Second Device", "Third Device"};
    return drivers;
}

/// What a device may refuse at any time: what makes a sound or a device. What plays on is not refused: an error in a
/// tick ends the program, as it says in the rules.
constexpr std::array<const char*, 7> kRefusals{
    "CreateSoundBufferFromFile", "DuplicateSoundBuffer", "CreateSoundBufferFromKept", "DirectSoundCreate",
    "SetCooperativeLevel 2",     "SetHeadphones",        "GetDirectSound3dListener"};

void PullStick(test::FakeJoystick& stick) {
    stick.Devices.clear();
    for (const char* operation : {"Acquire", "Poll", "GetDeviceStateJoystick"})
        stick.Failures[operation] = input_error::kInputLost;
}

void PutStickIn(test::FakeJoystick& stick, Dice& dice) {
    stick.Failures.clear();
    stick.Devices = {"stick"};
    stick.Axes = {0, 4};
    for (const std::int32_t axis : {8, 12, 16, 20, 24, 28}) {
        if (dice.OneIn(2)) stick.Axes.push_back(axis);
    }
}

}  // namespace

void PassMoment(Turn& turn) {
    const int milliseconds = turn.D.Between(1, 60);
    turn.Words += std::to_string(milliseconds) + " ms";
    turn.W.Pass(milliseconds);
}

void PassSeconds(Turn& turn) {
    const int milliseconds = turn.D.Between(200, 3000);
    turn.Words += std::to_string(milliseconds) + " ms";
    turn.W.Pass(milliseconds);
}

// Long enough for a state to be kept.
void PassLong(Turn& turn) { turn.W.Pass(21'000); }

void MoveStick(Turn& turn) {
    DIJOYSTATE& state = turn.W.Stick.State;
    const auto some = [&] { return turn.D.OneIn(4) ? 5000 : turn.D.OneIn(6) ? 10000 : turn.D.Between(0, 10000); };
    switch (turn.D.Below(5)) {
        case 0:
        case 1:
            state.x = some();
            state.y = some();
            break;
        case 2:
            for (std::int32_t* axis : {&state.z, &state.rx, &state.ry, &state.rz, &state.slider[0], &state.slider[1]})
                *axis = some();
            break;
        case 3:
            state.POV[0] = turn.D.OneIn(3) ? -1 : 4500 * turn.D.Below(8);
            break;
        default: {
            std::uint8_t& button = state.buttons[static_cast<std::size_t>(turn.D.Below(10))];
            button = button == 0 ? 128 : 0;
        }
    }
    turn.W.Pass(turn.D.Between(20, 120));
}

void PlugStick(Turn& turn) {
    const bool in = turn.W.Stick.Devices.empty();
    turn.Words += in ? "in" : "out";
    if (in) {
        PutStickIn(turn.W.Stick, turn.D);
    } else {
        PullStick(turn.W.Stick);
    }
    if (turn.D.OneIn(2)) turn.W.Pass(turn.D.Between(50, 700));
}

void PlugOutput(Turn& turn) {
    test::FakeSound& sound = turn.W.Sound;
    const Session& s = turn.W.s;
    sound.Drivers.clear();
    for (const std::string& driver : AllDrivers()) {
        if (turn.D.Below(3) != 0) sound.Drivers.push_back(driver);
    }
    const bool open = s.OpenDriver >= 0 && static_cast<std::size_t>(s.OpenDriver) < s.Drivers.size();
    const std::string& name = open ? s.Drivers[static_cast<std::size_t>(s.OpenDriver)] : std::string();
    const bool there = std::find(sound.Drivers.begin(), sound.Drivers.end(), name) != sound.Drivers.end();
    if (there) {
        sound.Failures.erase("Gone");
    } else {
        sound.Failures["Gone"] = kRefused;
    }
    turn.Words += std::to_string(sound.Drivers.size()) + " outputs" + (there ? "" : ", the open one gone");
    if (turn.D.OneIn(2)) turn.W.Pass(turn.D.Between(50, 1500));
}

void RefuseSound(Turn& turn) {
    if (turn.D.OneIn(2)) {
        const char* operation = turn.D.Of(kRefusals);
        turn.Words += operation;
        turn.W.Sound.Failures[operation] = kRefused;
        turn.W.Refused = true;
        return;
    }
    turn.Words += "nothing";
    std::erase_if(turn.W.Sound.Failures, [](const auto& failure) { return failure.first != "Gone"; });
}

void LoseSample(Turn& turn) {
    const std::string path = turn.W.In(turn.D.Of(World::Samples()));
    const bool there = std::filesystem::exists(path);
    turn.Words += (there ? "lost " : "found ") + path.substr(turn.W.Folder.Path().size());
    std::error_code ignored;
    if (there) {
        std::filesystem::rename(path, path + ".away", ignored);
    } else {
        std::filesystem::rename(path + ".away", path, ignored);
    }
}

}  // namespace marvolin::hand
