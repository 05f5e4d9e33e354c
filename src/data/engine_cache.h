// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Caches the open database of a closed connection for the next connection to the same file, because opening takes
// longer than a query. It is reused only if the path leads to the same file, unchanged and without a journal; otherwise
// it is closed, and the next connection opens and checks the file again. Contains at most one database. Private to this
// room.

#pragma once

#include <memory>
#include <string>

namespace tonalith::data {

class Engine;

class EngineCache {
 public:
  EngineCache();
  ~EngineCache();
  EngineCache(const EngineCache&) = delete;
  EngineCache& operator=(const EngineCache&) = delete;

  /// Takes the database of an engine if it can be reused.
  void Put(Engine&& engine);
  /// The cached engine for the file `dataSource`, or nullptr. Throws like opening if another program has the file
  /// locked.
  std::shared_ptr<Engine> Take(const std::string& dataSource, bool readOnly);

 private:
  std::shared_ptr<Engine> engine_;
};

}  // namespace tonalith::data
