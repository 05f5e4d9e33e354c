// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "support/scripted_audio.h"

#include <algorithm>

#include "core/failure.h"
#include "support/text_message.h"

namespace tonalith::tests {
namespace {

std::string Named(const std::string& step, std::uint64_t number) { return step + " " + std::to_string(number); }

class ScriptedInputFile : public platform::InputFile {
 public:
  ScriptedInputFile(AudioScript& script, const std::vector<std::byte>& content, bool recordReads)
      : script_(script), content_(content), recordReads_(recordReads) {}
  ScriptedInputFile(const ScriptedInputFile&) = delete;
  ScriptedInputFile& operator=(const ScriptedInputFile&) = delete;
  ~ScriptedInputFile() override { script_.Note("close file"); }

  std::int64_t Read(std::span<std::byte> into) override {
    if (script_.Refused("read", recordReads_ ? Named("read", into.size()) : std::string())) return -1;
    if (position_ >= content_.size()) return 0;
    const std::size_t start = static_cast<std::size_t>(position_);
    const std::size_t count = std::min(into.size(), content_.size() - start);
    std::copy_n(content_.begin() + static_cast<std::ptrdiff_t>(start), count, into.begin());
    position_ += count;
    return static_cast<std::int64_t>(count);
  }

  std::int64_t Seek(std::uint64_t position) override {
    if (script_.Refused("seek", recordReads_ ? Named("seek", position) : std::string())) return -1;
    position_ = position;
    return static_cast<std::int64_t>(position);
  }

  [[nodiscard]] std::uint64_t Size() const override { return content_.size(); }

 private:
  AudioScript& script_;
  std::vector<std::byte> content_;
  bool recordReads_;
  std::uint64_t position_ = 0;
};

}  // namespace

bool AudioScript::Refused(const std::string& step, const std::string& line) {
  const std::pair<std::string, int> now(step, ++counts_[step]);
  if (!line.empty()) Note(line);
  if (broken_.contains(now))
    throw core::Failure(core::failure_number::kInternalError, tests::TextMessage(step + " broke"));
  return refused_.contains(now);
}

int AudioScript::Count(const std::string& step) const {
  const auto found = counts_.find(step);
  return found == counts_.end() ? 0 : found->second;
}

std::unique_ptr<platform::InputFile> ScriptedFileInput::Open(const std::string& path) {
  if (script_.Refused("open file", "open file " + path)) return nullptr;
  const auto found = files_.find(path);
  if (found == files_.end()) return nullptr;
  return std::make_unique<ScriptedInputFile>(script_, found->second, recordReads_);
}

platform::WindowHandle ScriptedWindowMessages::CreateWindow(const platform::WindowDescription& description) {
  const std::string line = "create window " + description.className + " '" + description.caption + "' at " +
                           std::to_string(description.x) + "," + std::to_string(description.y) + " size " +
                           std::to_string(description.width) + "x" + std::to_string(description.height) + " style " +
                           std::to_string(description.style) + " extended " + std::to_string(description.extendedStyle);
  if (script_.Refused("create window", line)) return platform::kNoWindow;
  windows_[++lastWindow_] = [this](platform::WindowHandle, std::uint32_t message, std::uintptr_t, std::intptr_t) {
    script_.Note(Named("class procedure", message));
    return std::intptr_t{7};
  };
  return lastWindow_;
}

platform::WindowProcedure ScriptedWindowMessages::SetWindowProcedure(platform::WindowHandle window,
                                                                     platform::WindowProcedure procedure) {
  if (script_.Refused("set procedure", Named("set procedure", window))) return {};
  const auto found = windows_.find(window);
  if (found == windows_.end()) return {};
  return std::exchange(found->second, std::move(procedure));
}

std::intptr_t ScriptedWindowMessages::CallWindowProcedure(const platform::WindowProcedure& previous,
                                                          platform::WindowHandle window, std::uint32_t message,
                                                          std::uintptr_t wParam, std::intptr_t lParam) {
  if (script_.Refused("call procedure", {})) return 0;
  return previous ? previous(window, message, wParam, lParam) : 0;
}

void ScriptedWindowMessages::DestroyWindow(platform::WindowHandle window) {
  script_.Refused("destroy window", Named("destroy window", window));
  windows_.erase(window);
  std::erase_if(notices_, [window](const Notice& notice) { return notice.window == window; });
}

void ScriptedWindowMessages::PostMessage(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                         std::intptr_t lParam) {
  if (windows_.contains(window)) notices_.push_back({window, message, wParam, lParam});
}

std::intptr_t ScriptedWindowMessages::Send(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                           std::intptr_t lParam) {
  const auto found = windows_.find(window);
  if (found == windows_.end()) return 0;
  const platform::WindowProcedure procedure = found->second;
  return procedure ? procedure(window, message, wParam, lParam) : 0;
}

int ScriptedWindowMessages::Dispatch() {
  int handled = 0;
  for (std::size_t waiting = notices_.size(); waiting > 0 && !notices_.empty(); --waiting, ++handled) {
    const Notice notice = notices_.front();
    notices_.pop_front();
    Send(notice.window, notice.message, notice.wParam, notice.lParam);
  }
  return handled;
}

platform::WaveHandle ScriptedWaveOutput::Open(const platform::WaveFormat& format, platform::WindowHandle target) {
  lastFormat_ = format;
  const platform::WAVEFORMATEX& record = format.record;
  const std::string line = "open " + std::to_string(lastDevice_ + 1) + " tag " + std::to_string(record.wFormatTag) +
                           " channels " + std::to_string(record.nChannels) + " rate " +
                           std::to_string(record.nSamplesPerSec) + " bits " + std::to_string(record.wBitsPerSample) +
                           " for window " + std::to_string(target);
  if (script_.Refused("open", line)) return platform::kNoWaveHandle;
  devices_[++lastDevice_] = {target, false, false};
  return lastDevice_;
}

void ScriptedWaveOutput::PrepareHeader(platform::WaveHandle device, platform::WAVEHDR& header) {
  const bool refused = script_.Refused(
      "prepare", Named("prepare", device) + " with " + std::to_string(header.dwBufferLength) + " bytes");
  if (!refused && devices_.contains(device)) devices_[device].prepared = true;
}

void ScriptedWaveOutput::Write(platform::WaveHandle device, platform::WAVEHDR& /*header*/) {
  if (script_.Refused("write", Named("write", device)) || !devices_.contains(device)) return;
  Device& found = devices_[device];
  if (found.prepared) found.playing = true;
}

void ScriptedWaveOutput::Reset(platform::WaveHandle device) {
  if (script_.Refused("reset", Named("reset", device))) return;
  Finish(device);
}

void ScriptedWaveOutput::UnprepareHeader(platform::WaveHandle device, platform::WAVEHDR& /*header*/) {
  if (!script_.Refused("unprepare", Named("unprepare", device)) && devices_.contains(device)) {
    devices_[device].prepared = false;
  }
}

void ScriptedWaveOutput::Close(platform::WaveHandle device) {
  if (!script_.Refused("close", Named("close", device))) devices_.erase(device);
}

void ScriptedWaveOutput::Finish(platform::WaveHandle device) {
  const auto found = devices_.find(device);
  if (found == devices_.end() || !found->second.playing) return;
  found->second.playing = false;
  windows_.PostMessage(found->second.target, platform::kWaveOutputDone, device, 0);
}

void ScriptedWaveOutput::FinishAll() {
  for (const platform::WaveHandle device : OpenDevices()) Finish(device);
}

bool ScriptedWaveOutput::IsPlaying(platform::WaveHandle device) const {
  const auto found = devices_.find(device);
  return found != devices_.end() && found->second.playing;
}

std::vector<platform::WaveHandle> ScriptedWaveOutput::OpenDevices() const {
  std::vector<platform::WaveHandle> open;
  for (const auto& [handle, device] : devices_) open.push_back(handle);
  return open;
}

}  // namespace tonalith::tests
