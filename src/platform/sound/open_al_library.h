// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// OpenAL Soft, loaded when the first sound asks for a device: a program that shows scales starts without reading a
// sound library, and a system without one is a system without a sound device. Loaded once and kept; any thread; does
// not fail.

#pragma once

// Declares the extensions' functions, which the library has.
#define AL_ALEXT_PROTOTYPES
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

namespace tonalith::platform {

/// The functions in use, under the library's own names.
struct OpenAlLibrary {
  decltype(&::alBufferData) alBufferData = nullptr;
  decltype(&::alDeleteBuffers) alDeleteBuffers = nullptr;
  decltype(&::alDeleteSources) alDeleteSources = nullptr;
  decltype(&::alGenBuffers) alGenBuffers = nullptr;
  decltype(&::alGenSources) alGenSources = nullptr;
  decltype(&::alGetError) alGetError = nullptr;
  decltype(&::alGetInteger) alGetInteger = nullptr;
  decltype(&::alGetSourcei) alGetSourcei = nullptr;
  decltype(&::alIsExtensionPresent) alIsExtensionPresent = nullptr;
  decltype(&::alSourcePlay) alSourcePlay = nullptr;
  decltype(&::alSourcef) alSourcef = nullptr;
  decltype(&::alSourcei) alSourcei = nullptr;
  decltype(&::alcCloseDevice) alcCloseDevice = nullptr;
  decltype(&::alcCreateContext) alcCreateContext = nullptr;
  decltype(&::alcDestroyContext) alcDestroyContext = nullptr;
  decltype(&::alcDevicePauseSOFT) alcDevicePauseSOFT = nullptr;
  decltype(&::alcDeviceResumeSOFT) alcDeviceResumeSOFT = nullptr;
  decltype(&::alcGetIntegerv) alcGetIntegerv = nullptr;
  decltype(&::alcGetString) alcGetString = nullptr;
  decltype(&::alcIsExtensionPresent) alcIsExtensionPresent = nullptr;
  decltype(&::alcOpenDevice) alcOpenDevice = nullptr;
  decltype(&::alcSetThreadContext) alcSetThreadContext = nullptr;

  /// The library; nullptr when it is not installed or lacks one of these functions.
  static const OpenAlLibrary* Find();
};

}  // namespace tonalith::platform
