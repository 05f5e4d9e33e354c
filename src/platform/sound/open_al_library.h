// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// OpenAL Soft, loaded with dlopen when the first sound needs a device: starting the program loads no sound library, and
// a system without OpenAL Soft counts as a system without a sound device. Loaded once and never unloaded; any thread.

#pragma once

// Declares the functions of the extensions, which the library exports.
#define AL_ALEXT_PROTOTYPES
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

namespace tonalith::platform {

/// The functions used, under the library's names.
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

  /// Returns the library, or nullptr if it is not installed or lacks one of these functions.
  static const OpenAlLibrary* Find();
};

}  // namespace tonalith::platform
