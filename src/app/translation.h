// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Translates the program, whose texts are English, by files translations/tonalith_<language>.qm in the content folder.
// Qt's own texts are translated too if the system has them. Unusable files are ignored.

#pragma once

#include <QLocale>
#include <QStringList>
#include <filesystem>

class QCoreApplication;

namespace tonalith::app {

/// Returns the languages as in file names, preferred first: "pt-BR" gives pt_BR, then pt. English needs no file and
/// ends the list.
[[nodiscard]] QStringList WantedTranslations(const QStringList& languages);

/// Installs the first readable file for the lifetime of `application`. Does nothing without a folder `translations`.
/// Call before the first window is created.
void InstallTranslation(const std::filesystem::path& contentFolder, const QLocale& locale,
                        QCoreApplication& application);

}  // namespace tonalith::app
