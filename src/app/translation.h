// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The user's language. The program speaks English; a translation is a file translations/tonalith_<language>.qm beside
// the content, and Qt's own words follow it where the system has them. A file that cannot be used counts as none.
// User-interface thread, before the first window.

#pragma once

#include <QLocale>
#include <QStringList>
#include <filesystem>

class QCoreApplication;

namespace tonalith::app {

/// The languages' file names, most wanted first: "pt-BR" asks for pt_BR, then for pt. English needs no file and ends
/// the list.
[[nodiscard]] QStringList WantedTranslations(const QStringList& languages);

/// Installs the first file that is there and can be read, until the application goes. Without the folder nothing is
/// asked of the system.
void InstallTranslation(const std::filesystem::path& contentFolder, const QLocale& locale,
                        QCoreApplication& application);

}  // namespace tonalith::app
