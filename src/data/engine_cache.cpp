// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/engine_cache.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "data/engine.h"

namespace tonalith::data {

EngineCache::EngineCache() = default;

EngineCache::~EngineCache() = default;

void EngineCache::Put(Engine&& engine) {
  if (!engine.IsReusable()) return;
  engine_ = std::make_shared<Engine>(std::move(engine));
}

std::shared_ptr<Engine> EngineCache::Take(const std::string& dataSource, bool readOnly) {
  if (engine_ == nullptr) return nullptr;
  // An engine belongs to one connection at a time.
  std::shared_ptr<Engine> engine = std::exchange(engine_, nullptr);
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(dataSource, error).lexically_normal();
  const bool isSame = !error && path == engine->Path() && readOnly == engine->IsOpenedForReading();
  if (!isSame || !engine->IsFileAsOpened()) return nullptr;
  engine->RequireFreeFile();
  return engine;
}

}  // namespace tonalith::data
