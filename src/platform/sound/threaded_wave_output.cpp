// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/threaded_wave_output.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tonalith::platform {

/// The state shared by the two threads. The thread owns it too, so it outlives an output that could not join its
/// thread.
class ThreadedWaveOutput::Engine : public std::enable_shared_from_this<ThreadedWaveOutput::Engine> {
 public:
  Engine(std::unique_ptr<VoiceMixer> mixer, WindowMessages& windows, SoundDeviceObserver* observer)
      : mixer_(std::move(mixer)), windows_(windows), observer_(observer) {}

  void Start(WaveHandle device, WindowHandle target, std::shared_ptr<const StereoSound> sound);
  enum class Completion { kPosted, kNone };
  void Stop(WaveHandle device, Completion completion);
  void Shutdown();

 private:
  struct Command {
    VoiceId voice = 0;
    /// Null means stop.
    std::shared_ptr<const StereoSound> sound;
    SteadyTime requested;
  };
  struct Playing {
    VoiceId voice = 0;
    WindowHandle target = kNoWindow;
  };

  void Run();
  void Sleep(std::unique_lock<std::mutex>& lock, std::optional<SteadyTime> due);
  void Apply(const std::vector<Command>& commands);
  void ReturnBuffers(const std::vector<VoiceId>& ended);
  void Report(SoundDevice device);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::condition_variable finished_;
  std::thread thread_;
  bool closing_ = false;
  bool hasFinished_ = false;
  std::vector<Command> commands_;
  std::map<WaveHandle, Playing> playing_;
  VoiceId lastVoice_ = 0;
  /// Used only by the thread once it runs.
  std::unique_ptr<VoiceMixer> mixer_;
  WindowMessages& windows_;
  SoundDeviceObserver* observer_;
};

void ThreadedWaveOutput::Engine::Start(WaveHandle device, WindowHandle target,
                                       std::shared_ptr<const StereoSound> sound) {
  const std::lock_guard lock(mutex_);
  if (playing_.contains(device)) return;
  playing_[device] = {++lastVoice_, target};
  commands_.push_back({lastVoice_, std::move(sound), std::chrono::steady_clock::now()});
  if (!thread_.joinable()) thread_ = std::thread([self = shared_from_this()] { self->Run(); });
  changed_.notify_one();
}

void ThreadedWaveOutput::Engine::Stop(WaveHandle device, Completion completion) {
  const std::lock_guard lock(mutex_);
  const auto found = playing_.find(device);
  if (found == playing_.end()) return;
  commands_.push_back({found->second.voice, nullptr, {}});
  if (completion == Completion::kPosted && found->second.target != kNoWindow) {
    windows_.PostMessage(found->second.target, kWaveOutputDone, device, 0);
  }
  playing_.erase(found);
  changed_.notify_one();
}

void ThreadedWaveOutput::Engine::Shutdown() {
  constexpr std::chrono::milliseconds kShutdownTimeout(150);
  std::unique_lock lock(mutex_);
  closing_ = true;
  playing_.clear();
  changed_.notify_one();
  if (!thread_.joinable()) return;
  const bool finished = finished_.wait_for(lock, kShutdownTimeout, [this] { return hasFinished_; });
  lock.unlock();
  if (finished) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

void ThreadedWaveOutput::Engine::Run() {
  mixer_->Attach([this](SoundDevice device) { Report(device); });
  std::vector<Command> commands;
  std::vector<VoiceId> ended;
  std::optional<SteadyTime> due;
  std::unique_lock lock(mutex_);
  while (true) {
    Sleep(lock, due);
    if (closing_) break;
    commands.swap(commands_);
    lock.unlock();
    Apply(commands);
    commands.clear();
    ended.clear();
    mixer_->Collect(std::chrono::steady_clock::now(), ended);
    due = mixer_->NextDue();
    lock.lock();
    ReturnBuffers(ended);
  }
  lock.unlock();
  mixer_.reset();
  lock.lock();
  hasFinished_ = true;
  finished_.notify_one();
}

void ThreadedWaveOutput::Engine::Sleep(std::unique_lock<std::mutex>& lock, std::optional<SteadyTime> due) {
  const auto isWanted = [this] { return closing_ || !commands_.empty(); };
  if (due) {
    changed_.wait_until(lock, *due, isWanted);
  } else {
    changed_.wait(lock, isWanted);
  }
}

void ThreadedWaveOutput::Engine::Apply(const std::vector<Command>& commands) {
  for (const Command& command : commands) {
    if (command.sound) {
      mixer_->Start(command.voice, command.sound, command.requested);
    } else {
      mixer_->Stop(command.voice);
    }
  }
}

void ThreadedWaveOutput::Engine::ReturnBuffers(const std::vector<VoiceId>& ended) {
  for (const VoiceId voice : ended) {
    std::erase_if(playing_, [&](const auto& entry) {
      const auto& [device, playing] = entry;
      if (playing.voice != voice) return false;
      if (playing.target != kNoWindow) windows_.PostMessage(playing.target, kWaveOutputDone, device, 0);
      return true;
    });
  }
}

void ThreadedWaveOutput::Engine::Report(SoundDevice device) {
  const std::lock_guard lock(mutex_);
  if (closing_ || observer_ == nullptr) return;
  if (device == SoundDevice::kMissing) {
    observer_->SoundDeviceMissing();
  } else {
    observer_->SoundDeviceFound();
  }
}

ThreadedWaveOutput::ThreadedWaveOutput(std::unique_ptr<VoiceMixer> mixer, WindowMessages& windows,
                                       SoundDeviceObserver* observer)
    : engine_(std::make_shared<Engine>(std::move(mixer), windows, observer)) {}

ThreadedWaveOutput::~ThreadedWaveOutput() { engine_->Shutdown(); }

WaveHandle ThreadedWaveOutput::Open(const WaveFormat& format, WindowHandle target) {
  const std::optional<SoundLayout> layout = LayoutOf(format);
  if (!layout) return kNoWaveHandle;
  streams_[++lastHandle_] = {*layout, target, nullptr};
  return lastHandle_;
}

void ThreadedWaveOutput::PrepareHeader(WaveHandle device, WAVEHDR& header) {
  const auto found = streams_.find(device);
  if (found == streams_.end()) return;
  const std::span<const std::byte> bytes(header.lpData, header.dwBufferLength);
  // A sound that does not fit into memory is played as an empty one, so that its wave-done message is posted.
  found->second.sound = std::make_shared<StereoSound>(DecodeSound(found->second.layout, {}));
  found->second.sound = std::make_shared<StereoSound>(DecodeSound(found->second.layout, bytes));
}

void ThreadedWaveOutput::Write(WaveHandle device, WAVEHDR& /*header*/) {
  const auto found = streams_.find(device);
  if (found == streams_.end() || !found->second.sound) return;
  engine_->Start(device, found->second.target, found->second.sound);
}

void ThreadedWaveOutput::Reset(WaveHandle device) { engine_->Stop(device, Engine::Completion::kPosted); }

void ThreadedWaveOutput::UnprepareHeader(WaveHandle device, WAVEHDR& /*header*/) {
  const auto found = streams_.find(device);
  if (found != streams_.end()) found->second.sound.reset();
}

void ThreadedWaveOutput::Close(WaveHandle device) {
  engine_->Stop(device, Engine::Completion::kNone);
  streams_.erase(device);
}

}  // namespace tonalith::platform
