// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fuzzes the readers of sound files: recognition, reading, loading into a slot, decoding. In addition to the sanitizers
// it checks that samples are inside the file, that nothing larger than the file is allocated, and that a load leaves
// its slot either loaded or empty.

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "audio/shipped_recording.h"
#include "audio/sound_manager.h"
#include "audio/wave_file.h"
#include "platform/sound/stereo_sound.h"
#include "support/recording_msg_box.h"
#include "support/scripted_audio.h"

namespace {

using namespace tonalith;  // NOLINT(google-build-using-namespace)

void Demand(bool condition) {
  if (!condition) std::abort();
}

/// A file over the bytes that libFuzzer owns.
class BorrowedFile : public platform::InputFile {
 public:
  explicit BorrowedFile(std::span<const std::byte> bytes) : bytes_(bytes) {}

  std::int64_t Read(std::span<std::byte> into) override {
    if (position_ >= bytes_.size()) return 0;
    const std::size_t count = std::min(into.size(), bytes_.size() - static_cast<std::size_t>(position_));
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), count, into.begin());
    position_ += count;
    return static_cast<std::int64_t>(count);
  }
  std::int64_t Seek(std::uint64_t position) override {
    position_ = position;
    return static_cast<std::int64_t>(position);
  }
  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }

 private:
  std::span<const std::byte> bytes_;
  std::uint64_t position_ = 0;
};

/// Decodes the sounds that the real output accepts, and drops them.
class DecodingOutput : public platform::WaveOutput {
 public:
  platform::WaveHandle Open(const platform::WaveFormat& format, platform::WindowHandle /*target*/) override {
    layout_ = platform::LayoutOf(format);
    return layout_ ? 1 : platform::kNoWaveHandle;
  }
  void PrepareHeader(platform::WaveHandle device, platform::WAVEHDR& header) override {
    if (device == platform::kNoWaveHandle) return;
    const platform::StereoSound sound = platform::DecodeSound(*layout_, {header.lpData, header.dwBufferLength});
    Demand(sound.Frames() <= header.dwBufferLength);
    Demand(sound.Duration().count() >= 0);
  }
  void Write(platform::WaveHandle /*device*/, platform::WAVEHDR& /*header*/) override {}
  void Reset(platform::WaveHandle /*device*/) override {}
  void UnprepareHeader(platform::WaveHandle /*device*/, platform::WAVEHDR& /*header*/) override {}
  void Close(platform::WaveHandle /*device*/) override {}

 private:
  std::optional<platform::SoundLayout> layout_;
};

class BorrowedFiles : public platform::FileInput {
 public:
  explicit BorrowedFiles(std::span<const std::byte> bytes) : bytes_(bytes) {}
  std::unique_ptr<platform::InputFile> Open(const std::string& /*path*/) override {
    return std::make_unique<BorrowedFile>(bytes_);
  }

 private:
  std::span<const std::byte> bytes_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::byte> bytes(reinterpret_cast<const std::byte*>(data), size);
  BorrowedFiles files(bytes);
  audio::IsShippedRecording(*files.Open("fuzz.wav"));
  DecodingOutput output;
  tests::AudioScript script;
  tests::ScriptedWindowMessages windows(script);
  tests::RecordingMsgBox box;
  audio::SoundManager sounds(files, output, windows, box);
  const bool loaded = sounds.LoadSoundBuffer(1, "fuzz.wav", audio::BufferFlags::kPlayOnLoad);
  const audio::SoundBuffer& buffer = sounds.Buffer(1);
  Demand(loaded == (buffer.state != audio::BufferState::kEmpty));
  Demand(loaded == box.Messages().empty());
  Demand(buffer.samples.size() <= size);
  return 0;
}
