// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tells when a window has been painted for the first time and what memory the process holds two seconds later. The
// measuring parent puts the moment of the start into TONALITH_BENCH_START (nanoseconds of the steady clock).

#pragma once

class QWidget;

namespace tonalith::bench {

/// Watches the first paint of `last`, the child of `window` that is painted last. Prints
/// "first-paint <ms> widgets <n>", and after two seconds "proportional-memory <KiB> processor <ms>", then quits.
void ReportFirstPaint(QWidget& window, QWidget& last);

}  // namespace tonalith::bench
