// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fakes of the audio ports: files in memory, wave outputs and windows that record their calls. They share one
// AudioScript, which contains the common record and decides which step fails, by name and count: "open file", "read",
// "seek", "size", "create window", "set procedure", "call procedure", "destroy window", "open", "prepare", "write",
// "reset", "unprepare", "close". One thread.

#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_input.h"
#include "platform/wave_output.h"
#include "platform/window_messages.h"

namespace tonalith::tests {

class AudioScript {
 public:
  /// The `nth` step (from 1) with that name returns the failure result of its port.
  void Refuse(const std::string& step, int nth = 1) { refused_.insert({step, nth}); }
  /// The `nth` step with that name throws failure 51 with the text "<step> broke".
  void Break(const std::string& step, int nth = 1) { broken_.insert({step, nth}); }

  /// For the fakes: counts the step, records a line and throws if the script says so. Returns whether the step is
  /// refused.
  bool Refused(const std::string& step, const std::string& line);

  void Note(const std::string& line) { record_ += line + "\n"; }
  [[nodiscard]] const std::string& Record() const { return record_; }
  void Forget() { record_.clear(); }
  /// The number of calls of a step.
  [[nodiscard]] int Count(const std::string& step) const;

 private:
  std::set<std::pair<std::string, int>> refused_;
  std::set<std::pair<std::string, int>> broken_;
  std::map<std::string, int> counts_;
  std::string record_;
};

class ScriptedFileInput : public platform::FileInput {
 public:
  explicit ScriptedFileInput(AudioScript& script) : script_(script) {}

  void Put(const std::string& path, std::vector<std::byte> content) { files_[path] = std::move(content); }
  void Remove(const std::string& path) { files_.erase(path); }
  /// Records reads and seeks as well, not only opening and closing.
  void RecordReads() { recordReads_ = true; }

  std::unique_ptr<platform::InputFile> Open(const std::string& path) override;

 private:
  AudioScript& script_;
  std::map<std::string, std::vector<std::byte>> files_;
  bool recordReads_ = false;
};

class ScriptedWindowMessages : public platform::WindowMessages {
 public:
  explicit ScriptedWindowMessages(AudioScript& script) : script_(script) {}

  platform::WindowHandle CreateWindow(const platform::WindowDescription& description) override;
  platform::WindowProcedure SetWindowProcedure(platform::WindowHandle window,
                                               platform::WindowProcedure procedure) override;
  std::intptr_t CallWindowProcedure(const platform::WindowProcedure& previous, platform::WindowHandle window,
                                    std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) override;
  void DestroyWindow(platform::WindowHandle window) override;
  void PostMessage(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                   std::intptr_t lParam) override;

  /// Calls the procedure of a window and returns its result; 0 if the window does not exist.
  std::intptr_t Send(platform::WindowHandle window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);
  /// Delivers the posted messages and returns their number.
  int Dispatch();

 private:
  struct Notice {
    platform::WindowHandle window;
    std::uint32_t message;
    std::uintptr_t wParam;
    std::intptr_t lParam;
  };
  AudioScript& script_;
  std::map<platform::WindowHandle, platform::WindowProcedure> windows_;
  std::deque<Notice> notices_;
  platform::WindowHandle lastWindow_ = platform::kNoWindow;
};

class ScriptedWaveOutput : public platform::WaveOutput {
 public:
  ScriptedWaveOutput(AudioScript& script, platform::WindowMessages& windows) : script_(script), windows_(windows) {}

  platform::WaveHandle Open(const platform::WaveFormat& format, platform::WindowHandle target) override;
  void PrepareHeader(platform::WaveHandle device, platform::WAVEHDR& header) override;
  void Write(platform::WaveHandle device, platform::WAVEHDR& header) override;
  void Reset(platform::WaveHandle device) override;
  void UnprepareHeader(platform::WaveHandle device, platform::WAVEHDR& header) override;
  void Close(platform::WaveHandle device) override;

  /// Simulates the end of the buffer: posts the message of a playing device. No effect on others.
  void Finish(platform::WaveHandle device);
  /// Finish for all playing devices.
  void FinishAll();
  [[nodiscard]] bool IsPlaying(platform::WaveHandle device) const;
  /// The open devices, in the order of opening.
  [[nodiscard]] std::vector<platform::WaveHandle> OpenDevices() const;
  /// The format of the last Open.
  [[nodiscard]] const platform::WaveFormat& LastFormat() const { return lastFormat_; }

 private:
  struct Device {
    platform::WindowHandle target = platform::kNoWindow;
    bool prepared = false;
    bool playing = false;
  };
  AudioScript& script_;
  platform::WindowMessages& windows_;
  std::map<platform::WaveHandle, Device> devices_;
  platform::WaveFormat lastFormat_;
  platform::WaveHandle lastDevice_ = 100;
};

}  // namespace tonalith::tests
