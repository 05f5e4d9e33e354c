// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The WAV file of one sound: RIFF/WAVE, a plain format record of 16 bytes, PCM, one channel, 44.1 kHz, 16 bit, nothing
// behind the samples. Samples are rounded to the nearest step and not dithered, so that silence is silence. Pure
// function; the caller writes the bytes.

#pragma once

#include <span>
#include <string>

namespace tonalith::synth {

/// `samples` between -1 and 1; what lies outside is held at full scale.
std::string WavFile(std::span<const double> samples);

}  // namespace tonalith::synth
