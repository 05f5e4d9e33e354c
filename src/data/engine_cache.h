// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The open database of a connection that was closed, kept for the next connection to the same file, because opening one
// takes longer than a question to it. It is given out only while the file is the one that was checked when it was
// opened: same place, same file, unchanged since, nothing beside it. Otherwise it is closed, and the next connection
// opens and checks the file in full. Holds one database at a time. Private to the data room; one thread.

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

  /// Takes over what an engine holds, where that can be used again.
  void Put(Engine&& engine);
  /// An engine on the file that `dataSource` names, or nullptr where there is none that can be used. Throws as opening
  /// does when another program holds the file.
  std::shared_ptr<Engine> Take(const std::string& dataSource, bool readOnly);

 private:
  std::shared_ptr<Engine> engine_;
};

}  // namespace tonalith::data
