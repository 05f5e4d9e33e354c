// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/std_system.h"

#include <filesystem>
#include <system_error>

#include "core/failure.h"
#include "platform/system/messages.h"

namespace tonalith::platform {

std::optional<NetworkConnection> NoNetworkDrives::ConnectionOf(const std::string& /*drive*/) const {
  return std::nullopt;
}

void StdWorkingDirectory::MakeDriveCurrent(const std::string& /*drive*/) {
  // There are no drives: ChangeTo is sufficient.
}

void StdWorkingDirectory::ChangeTo(const std::string& directory) {
  constexpr std::int32_t kPathNotFound = 76;
  std::error_code error;
  std::filesystem::current_path(directory, error);
  if (error) throw core::Failure(kPathNotFound, {SystemMessageId::kPathNotFound, directory, error.message()});
}

}  // namespace tonalith::platform
