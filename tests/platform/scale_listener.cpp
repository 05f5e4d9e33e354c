// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/scale_listener.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

#include "audio/scale_playback.h"
#include "core/note_model.h"
#include "sounds/sound_measures.h"
#include "voice/scale_note.h"

namespace tonalith::testing {
namespace {

constexpr double kFullScale = 32768;
/// Samples above this amplitude count as sound. A plucked note is never below it for as long as kBridge.
constexpr double kHeight = 0.0002;
constexpr double kBridge = 0.004;
/// Offset of the measurement from the start of a note, in frames.
constexpr std::size_t kSettled = 4000;

class Stage : public audio::PlaybackHost {
 public:
  Stage(std::string folder, std::string key, std::string pattern)
      : folder_(std::move(folder)), key_(std::move(key)), pattern_(std::move(pattern)) {}
  std::optional<std::string> CurrentField(int position) override { return position == 5 ? pattern_ : "Major"; }
  std::string KeyText() override { return key_; }
  std::string SoundFolder() override { return folder_; }
  void ShowMarker(int /*index*/) override {}
  void HideMarker() override {}
  void ShowStatus(const audio::PlaybackStatus& /*status*/) override {}

 private:
  std::string folder_;
  std::string key_;
  std::string pattern_;
};

/// The pitch of a sound in hertz from the first maximum of its autocorrelation; 0 if there is none.
double RoughPitch(const std::vector<double>& sound) {
  constexpr std::size_t kWindow = 4096;
  constexpr std::size_t kShortest = 17;   // 2,600 Hz
  constexpr std::size_t kLongest = 1000;  // 44 Hz
  if (sound.size() < kSettled + kWindow + kLongest + 2) return 0;
  const double* const still = sound.data() + kSettled;
  const double energy = std::inner_product(still, still + kWindow, still, 0.0);
  std::vector<double> likeness;
  for (std::size_t lag = kShortest; lag <= kLongest; ++lag) {
    const double* const moved = still + lag;
    const double product = std::inner_product(still, still + kWindow, moved, 0.0);
    likeness.push_back(product / std::sqrt(energy * std::inner_product(moved, moved + kWindow, moved, 0.0)));
  }
  const double bound = 0.9 * *std::max_element(likeness.begin(), likeness.end());
  for (std::size_t i = 1; i + 1 < likeness.size(); ++i) {
    const double before = likeness[i - 1];
    const double here = likeness[i];
    const double after = likeness[i + 1];
    if (here < bound || before >= here || here < after) continue;
    const double shift = (before - after) / (2 * (before - 2 * here + after));
    return 44100 / (static_cast<double>(kShortest + i) + shift);
  }
  return 0;
}

/// The 16-bit samples of the note that the program renders.
std::vector<double> Rendered(int pitch) {
  constexpr std::size_t kHeader = 44;
  constexpr std::size_t kChecksumChunk = 16;
  const std::string file = voice::RenderScaleNote(pitch);
  std::vector<double> steps((file.size() - kHeader - kChecksumChunk) / 2);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    std::int16_t step = 0;
    std::memcpy(&step, file.data() + kHeader + 2 * i, sizeof step);
    steps[i] = step;
  }
  return steps;
}

AnalysedNote Measure(const Recording& recording, const Stretch& stretch) {
  std::vector<double> sound(recording.left.begin() + static_cast<std::ptrdiff_t>(stretch.from),
                            recording.left.begin() + static_cast<std::ptrdiff_t>(stretch.to));
  for (double& sample : sound) sample *= kFullScale;
  AnalysedNote note{.place = stretch, .difference = std::numeric_limits<double>::infinity()};
  const double rough = RoughPitch(sound);
  if (rough <= 0) return note;
  note.pitch = static_cast<int>(std::lround(69 + 12 * std::log2(rough / 440)));
  const sounds::PitchReading fine = sounds::MeasurePitch(sound, 440 * std::exp2((note.pitch - 69) / 12.0));
  note.cents = std::max(std::abs(fine.fundamentalCents), std::abs(fine.toneCents));
  const std::vector<double> steps = Rendered(note.pitch);
  const auto first =
      std::find_if(steps.begin(), steps.end(), [](double step) { return std::abs(step) > kHeight * kFullScale; }) -
      steps.begin();
  note.place.from = stretch.from - static_cast<std::size_t>(first);
  note.place.to = note.place.from + steps.size();
  note.difference = DifferenceFrom(recording, note.place.from, steps);
  return note;
}

}  // namespace

const std::vector<ListenedScale>& ListenedScales() {
  static const std::vector<ListenedScale> scales = {
      {"Major", "2212221"},
      {"Minor triad", "345"},
      {"Blues", "321132"},
      {"Dominant ninth", "4334"},
      {"Natural minor", "2122122"},
      {"Harmonic minor", "2122131"},
      {"Melodic minor", "2122221"},
      {"Dorian", "2122212"},
      {"Phrygian dominant", "1312122"},
      {"Major pentatonic", "22323"},
      {"Minor pentatonic", "32232"},
      {"Whole tone", "222222"},
      {"Diminished", "21212121"},
      {"Bebop", "22122111"},
      {"Chromatic", "111111111111"},
      {"Power chord", "75"},
      {"Major triad over two octaves", "435435"},
      {"Major seventh", "4341"},
      {"Minor seventh flat five", "3342"},
      {"Three whole tones", "222"},
  };
  return scales;
}

Recording RecordScale(const std::string& folder, const std::string& key, const std::string& pattern,
                      std::string& messages) {
  RecordingPath();
  tests::RecordingMsgBox box;
  platform::PosixFileInput files;
  platform::WindowMessageQueue queue;
  auto output = platform::MakeOpenAlWaveOutput(queue, nullptr);
  {
    Stage stage(folder, key, pattern);
    audio::ScaleSoundFiles scaleSounds(files);
    audio::SoundManager sounds(scaleSounds, *output, queue, box);
    audio::ScalePlayback playback(core::Neck::Standard(), sounds, scaleSounds, stage, queue, box);
    sounds.Notifier = &playback;
    playback.PlayToneNotes();
  }
  output.reset();
  messages = box.Texts();
  return ReadRecording();
}

AnalysedScale ListenToScale(const std::string& folder, const std::string& key, const std::string& pattern) {
  AnalysedScale heard;
  const Recording recording = RecordScale(folder, key, pattern, heard.messages);
  for (const Stretch& stretch : Stretches(recording, kHeight, kBridge)) {
    heard.notes.push_back(Measure(recording, stretch));
  }
  for (std::size_t i = 1; i < heard.notes.size(); ++i) {
    const auto gap = static_cast<double>(heard.notes[i].place.from) - static_cast<double>(heard.notes[i - 1].place.to);
    heard.gaps.push_back(gap / recording.rate);
  }
  return heard;
}

std::vector<int> PitchesOfScale(const std::string& key, const std::string& pattern) {
  constexpr int kC4 = 60;
  const auto number = std::find(core::kSharpNotes.begin(), core::kSharpNotes.end(), key) - core::kSharpNotes.begin();
  std::vector<int> pitches{kC4 + static_cast<int>(number)};
  for (const char step : pattern) pitches.push_back(pitches.back() + (step - '0'));
  if ((pitches.back() - pitches.front()) % 12 != 0) pitches.push_back(pitches.front());
  return pitches;
}

double DifferenceFrom(const Recording& recording, std::size_t first, const std::vector<double>& steps) {
  if (first + steps.size() > recording.left.size()) return std::numeric_limits<double>::infinity();
  double largest = 0;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const double expected = steps[i] / kFullScale;
    largest = std::max({largest, std::abs(double{recording.left[first + i]} - expected),
                        std::abs(double{recording.right[first + i]} - expected)});
  }
  return largest;
}

}  // namespace tonalith::testing
