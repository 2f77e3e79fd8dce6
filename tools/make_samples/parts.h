#pragma once

#include "signal.h"

namespace marvolin::samples {

// Loops of two bars, all in D minor over the harmony of patterns.h, so that any of them fit together.

Clip BeatStraight();
Clip BeatSwing();
Clip BeatBroken();
Clip BeatHalfTime();
Clip HatsShuffle();
Clip Congas();

Clip BassWalking();
Clip BassPulse();
Clip BassAcid();
Clip BassSub();
Clip BassPlucked();

Clip ChordsWash();
Clip ChordsStabs();
Clip ChordsElectricPiano();
Clip ChordsOrgan();
Clip ChordsStrings();

Clip ToneBellArp();
Clip TonePluckArp();
Clip ToneGlass();
Clip ToneLead();
Clip ToneMarimba();

// Sounds that are played once.

Clip ShotKick();
Clip ShotSnare();
Clip ShotClap();
Clip ShotHat();
Clip ShotTom();
Clip ShotCrash();
Clip ShotBell();
Clip ShotChord();
Clip ShotZap();
Clip ShotSwell();

}  // namespace marvolin::samples
