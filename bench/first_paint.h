// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reports the first paint of a window, and the memory and activity of its process two seconds later. The measuring
// parent sets TONALITH_BENCH_START to the start time (nanoseconds of the steady clock).

#pragma once

class QWidget;

namespace tonalith::bench {

/// Watches the first paint of `last`, the child of `window` that is painted last. Prints "first-paint <ms> widgets <n>"
/// and, two seconds later, "proportional-memory <KiB> processor <ms> wake-ups <n>" (the latter two measured in the
/// second second), then quits. With TONALITH_BENCH_START_ONLY set, the process ends after the first line.
void ReportFirstPaint(QWidget& window, QWidget& last);

}  // namespace tonalith::bench
