// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tells when a window has been painted for the first time, and what its process holds and does two seconds later. The
// measuring parent puts the moment of the start into TONALITH_BENCH_START (nanoseconds of the steady clock).

#pragma once

class QWidget;

namespace tonalith::bench {

/// Watches the first paint of `last`, the child of `window` that is painted last. Prints
/// "first-paint <ms> widgets <n>", and after two seconds "proportional-memory <KiB> processor <ms> wake-ups <n>", the
/// latter two of the second second, then quits. With TONALITH_BENCH_START_ONLY set, the process ends at the first line.
void ReportFirstPaint(QWidget& window, QWidget& last);

}  // namespace tonalith::bench
