// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/open_al_library.h"

#include <dlfcn.h>

#include <optional>

namespace tonalith::platform {
namespace {

constexpr const char* kLibraryName = "libopenal.so.1";

class Loader {
 public:
  explicit Loader(void* handle) : handle_(handle) {}

  template <class Function>
  void Resolve(const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(handle_, name));
    isComplete_ = isComplete_ && function != nullptr;
  }
  [[nodiscard]] bool IsComplete() const { return isComplete_; }

 private:
  void* handle_;
  bool isComplete_ = true;
};

std::optional<OpenAlLibrary> Load() {
  void* const handle = dlopen(kLibraryName, RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) return std::nullopt;
  OpenAlLibrary library;
  Loader loader(handle);
  loader.Resolve("alBufferData", library.alBufferData);
  loader.Resolve("alDeleteBuffers", library.alDeleteBuffers);
  loader.Resolve("alDeleteSources", library.alDeleteSources);
  loader.Resolve("alGenBuffers", library.alGenBuffers);
  loader.Resolve("alGenSources", library.alGenSources);
  loader.Resolve("alGetError", library.alGetError);
  loader.Resolve("alGetInteger", library.alGetInteger);
  loader.Resolve("alGetSourcei", library.alGetSourcei);
  loader.Resolve("alIsExtensionPresent", library.alIsExtensionPresent);
  loader.Resolve("alSourcePlay", library.alSourcePlay);
  loader.Resolve("alSourcef", library.alSourcef);
  loader.Resolve("alSourcei", library.alSourcei);
  loader.Resolve("alcCloseDevice", library.alcCloseDevice);
  loader.Resolve("alcCreateContext", library.alcCreateContext);
  loader.Resolve("alcDestroyContext", library.alcDestroyContext);
  loader.Resolve("alcDevicePauseSOFT", library.alcDevicePauseSOFT);
  loader.Resolve("alcDeviceResumeSOFT", library.alcDeviceResumeSOFT);
  loader.Resolve("alcGetIntegerv", library.alcGetIntegerv);
  loader.Resolve("alcGetString", library.alcGetString);
  loader.Resolve("alcIsExtensionPresent", library.alcIsExtensionPresent);
  loader.Resolve("alcOpenDevice", library.alcOpenDevice);
  loader.Resolve("alcSetThreadContext", library.alcSetThreadContext);
  if (!loader.IsComplete()) return std::nullopt;
  return library;
}

}  // namespace

const OpenAlLibrary* OpenAlLibrary::Find() {
  static const std::optional<OpenAlLibrary> library = Load();
  return library ? &*library : nullptr;
}

}  // namespace tonalith::platform
