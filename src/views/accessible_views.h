// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The accessible interfaces of the views: the neck with its visible notes only, and the staff as a picture with a text.

#pragma once

namespace tonalith::views {

/// Registers the accessible interfaces, once per process. The constructor of each view calls it.
void InstallAccessibleViews();

}  // namespace tonalith::views
