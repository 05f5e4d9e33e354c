// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/open_al_device.h"

#include <array>
#include <limits>
#include <string_view>

namespace tonalith::platform {
namespace {

/// The library's functions. A device exists only after they were loaded.
const OpenAlLibrary& Al() { return *OpenAlLibrary::Find(); }

bool FitsInto(std::size_t number) { return number <= static_cast<std::size_t>(std::numeric_limits<ALsizei>::max()); }

struct BufferView {
  ALenum format;
  const void* data;
  std::size_t size;
};

BufferView ViewOf(const StereoSound& sound) {
  if (const auto* shorts = std::get_if<std::vector<std::int16_t>>(&sound.samples)) {
    return {AL_FORMAT_STEREO16, shorts->data(), shorts->size() * sizeof(std::int16_t)};
  }
  const auto& floats = std::get<std::vector<float>>(sound.samples);
  return {AL_FORMAT_STEREO_FLOAT32, floats.data(), floats.size() * sizeof(float)};
}

/// A device that writes a file would restart at the beginning of the file after each pause.
bool WritesFile(ALCdevice* device) {
  const ALCchar* const name = Al().alcGetString(device, ALC_ALL_DEVICES_SPECIFIER);
  return name != nullptr && std::string_view(name) == "Wave File Writer";
}

}  // namespace

std::unique_ptr<OpenAlDevice> OpenAlDevice::Open() {
  if (OpenAlLibrary::Find() == nullptr) return nullptr;
  ALCdevice* const device = Al().alcOpenDevice(nullptr);
  if (device == nullptr) return nullptr;
  const std::array<ALCint, 5> attributes{ALC_HRTF_SOFT, ALC_FALSE, ALC_OUTPUT_LIMITER_SOFT, ALC_FALSE, 0};
  ALCcontext* const context = Al().alcCreateContext(device, attributes.data());
  if (context == nullptr || Al().alcSetThreadContext(context) == ALC_FALSE) {
    if (context != nullptr) Al().alcDestroyContext(context);
    Al().alcCloseDevice(device);
    return nullptr;
  }
  return std::unique_ptr<OpenAlDevice>(new OpenAlDevice(device, context));
}

OpenAlDevice::OpenAlDevice(ALCdevice* device, ALCcontext* context) : device_(device), context_(context) {
  ALCint periodsPerSecond = 0;
  Al().alcGetIntegerv(device_, ALC_REFRESH, 1, &periodsPerSecond);
  if (periodsPerSecond < 1) periodsPerSecond = 43;
  period_ = std::chrono::nanoseconds(std::chrono::seconds(1)) / periodsPerSecond;
  // Resamplers are listed by ascending quality.
  if (Al().alIsExtensionPresent("AL_SOFT_source_resampler") != AL_FALSE)
    resampler_ = Al().alGetInteger(AL_NUM_RESAMPLERS_SOFT) - 1;
  canPause_ = Al().alcIsExtensionPresent(device_, "ALC_SOFT_pause_device") != ALC_FALSE && !WritesFile(device_);
}

OpenAlDevice::~OpenAlDevice() {
  Al().alcSetThreadContext(nullptr);
  Al().alcDestroyContext(context_);
  Al().alcCloseDevice(device_);
}

bool OpenAlDevice::IsConnected() const {
  ALCint connected = ALC_TRUE;
  Al().alcGetIntegerv(device_, ALC_CONNECTED, 1, &connected);
  return connected != ALC_FALSE;
}

void OpenAlDevice::Pause() {
  if (isPaused_ || !canPause_) return;
  Al().alcDevicePauseSOFT(device_);
  isPaused_ = true;
}

void OpenAlDevice::Resume() {
  if (!isPaused_) return;
  Al().alcDeviceResumeSOFT(device_);
  isPaused_ = false;
}

std::optional<OpenAlVoice> OpenAlDevice::Play(const StereoSound& sound) {
  const std::optional<OpenAlVoice> voice = MakeVoice(sound);
  if (!voice) return std::nullopt;
  Al().alSourcePlay(voice->source);
  if (Al().alGetError() == AL_NO_ERROR) return voice;
  Release(*voice);
  return std::nullopt;
}

std::optional<OpenAlVoice> OpenAlDevice::MakeVoice(const StereoSound& sound) const {
  const BufferView view = ViewOf(sound);
  if (sound.Frames() == 0 || !FitsInto(view.size)) return std::nullopt;
  Al().alGetError();
  OpenAlVoice voice;
  Al().alGenBuffers(1, &voice.buffer);
  if (Al().alGetError() != AL_NO_ERROR) return std::nullopt;
  Al().alGenSources(1, &voice.source);
  if (Al().alGetError() != AL_NO_ERROR) {
    Al().alDeleteBuffers(1, &voice.buffer);
    return std::nullopt;
  }
  Al().alBufferData(voice.buffer, view.format, view.data, static_cast<ALsizei>(view.size),
                    static_cast<ALsizei>(sound.rate));
  Al().alSourcei(voice.source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
  Al().alSourcei(voice.source, AL_SOURCE_RELATIVE, AL_TRUE);
  Al().alSourcef(voice.source, AL_ROLLOFF_FACTOR, 0.0F);
  if (resampler_ >= 0) Al().alSourcei(voice.source, AL_SOURCE_RESAMPLER_SOFT, resampler_);
  Al().alSourcei(voice.source, AL_BUFFER, static_cast<ALint>(voice.buffer));
  if (Al().alGetError() == AL_NO_ERROR) return voice;
  Release(voice);
  return std::nullopt;
}

bool OpenAlDevice::IsOver(const OpenAlVoice& voice) {
  ALint state = AL_STOPPED;
  Al().alGetSourcei(voice.source, AL_SOURCE_STATE, &state);
  return state != AL_PLAYING;
}

std::size_t OpenAlDevice::FramesDone(const OpenAlVoice& voice) {
  ALint frames = 0;
  Al().alGetSourcei(voice.source, AL_SAMPLE_OFFSET, &frames);
  return static_cast<std::size_t>(frames);
}

void OpenAlDevice::FadeOut(const OpenAlVoice& voice) { Al().alSourcef(voice.source, AL_GAIN, 0.0F); }

void OpenAlDevice::Release(const OpenAlVoice& voice) {
  Al().alDeleteSources(1, &voice.source);
  Al().alDeleteBuffers(1, &voice.buffer);
}

}  // namespace tonalith::platform
