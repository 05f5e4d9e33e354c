// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Addresses as links in help files write them. Pure functions; any thread; never fail.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::help {

/// What stands before the colon, in small letters, if that can be a scheme of two letters or more; else empty.
[[nodiscard]] std::string SchemeOf(std::string_view address);

/// `%41` resolved; a sign without two digits after it stays.
[[nodiscard]] std::string PercentDecoded(std::string_view text);

/// The path that `relative` means on the page `base`, in small letters, with a slash in front: `.` and `..` resolved,
/// backslashes taken for slashes, never above the top.
[[nodiscard]] std::string ResolvedPath(std::string_view base, std::string_view relative);

/// A path inside a compiled help file, out of the forms that name the file first ("ms-its:a.chm::/b.htm"); any other
/// address as it is.
[[nodiscard]] std::string_view WithoutStore(std::string_view address);

}  // namespace tonalith::help
