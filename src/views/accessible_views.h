// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How assistive technology sees the views: the neck with its visible notes only, and the staff as a picture with a
// text. User-interface thread; never fails.

#pragma once

namespace tonalith::views {

/// Makes the views' own accessible interfaces known, once per process. Every view calls it when it is made.
void InstallAccessibleViews();

}  // namespace tonalith::views
