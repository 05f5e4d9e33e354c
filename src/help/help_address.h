// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Parses addresses of links in help files.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::help {

/// The text before the colon in lower case, if it can be a scheme of two letters or more; else empty.
[[nodiscard]] std::string SchemeOf(std::string_view address);

/// Resolves `%41`; a percent sign without two hexadecimal digits stays.
[[nodiscard]] std::string PercentDecoded(std::string_view text);

/// The absolute path of `relative` on the page `base`, in lower case, with a leading slash: `.` and `..` are resolved,
/// backslashes count as slashes, `..` stops at the root.
[[nodiscard]] std::string ResolvedPath(std::string_view base, std::string_view relative);

/// Removes the name of the help file from addresses such as "ms-its:a.chm::/b.htm"; returns other addresses unchanged.
[[nodiscard]] std::string_view WithoutStore(std::string_view address);

}  // namespace tonalith::help
