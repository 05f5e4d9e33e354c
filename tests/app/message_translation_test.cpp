// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Messages of rooms without windows appear in the language of the user.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QTranslator>
#include <map>

#include "core/failure.h"
#include "data/data_failure.h"
#include "data/messages.h"
#include "platform/qt/qt_msg_box.h"

namespace tonalith::app {
namespace {

/// A translation of a few messages into German.
class FewMessages : public QTranslator {
 public:
  [[nodiscard]] bool isEmpty() const override { return false; }
  [[nodiscard]] QString translate(const char* context, const char* source, const char* /*comment*/,
                                  int /*n*/) const override {
    static const std::map<std::pair<std::string, std::string>, const char*> texts{
        {{"tonalith::core", "Overflow"}, "\u00DCberlauf"},
        {{"tonalith::core", "%1: %2"}, "%2 (%1)"},
        {{"tonalith::data", "Error importing %1\n%2"}, "%2\nin %1"},
        {{"tonalith::data", "Could not use '%1'; file already in use."}, "\u201E%1\u201C ist schon ge\u00F6ffnet."}};
    const auto found = texts.find({context, source});
    return found == texts.end() ? QString() : QString::fromUtf8(found->second);
  }
};

/// The title and text of the message box for a message.
std::string Shown(const core::Message& message, const core::Message& title = {}) {
  std::string shown;
  platform::QtMsgBox box("Tonalith");
  QTimer::singleShot(0, qApp, [&] {
    auto* const dialog = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    shown = (dialog->windowTitle() + QStringLiteral(": ") + dialog->text()).toStdString();
    dialog->accept();
  });
  box.Show(message, core::MsgBoxStyle::kOkOnly, title);
  return shown;
}

core::Message ImportError(const core::Failure& failure) {
  return {data::MessageId::kImportError, std::string("/packs/%1.mdb"), failure.Text()};
}

core::Failure InUse() { return core::Failure::Unspecified({data::MessageId::kFileInUse, std::string("/a.mdb")}); }

TEST(MessageTranslation, WithoutATranslationIsEnglish) {
  EXPECT_EQ(Shown(core::Failure::Overflow().NumberAndText()), "Tonalith: 6: Overflow");
  EXPECT_EQ(Shown(ImportError(core::Failure::Overflow())), "Tonalith: Error importing /packs/%1.mdb\nOverflow");
  EXPECT_EQ(Shown(InUse().Text(), data::NoTransaction().Text()),
            "No transaction is active.: Could not use '/a.mdb'; file already in use.");
}

TEST(MessageTranslation, ReachesMessagesOfCoreAndDataAndTheirArguments) {
  FewMessages german;
  QCoreApplication::installTranslator(&german);
  EXPECT_EQ(Shown(core::Failure::Overflow().NumberAndText()), "Tonalith: \u00DCberlauf (6)");
  EXPECT_EQ(Shown(ImportError(core::Failure::Overflow())), "Tonalith: \u00DCberlauf\nin /packs/%1.mdb");
  EXPECT_EQ(Shown(ImportError(InUse())), "Tonalith: \u201E/a.mdb\u201C ist schon ge\u00F6ffnet.\nin /packs/%1.mdb");
  EXPECT_EQ(Shown(data::NoTransaction().Text(), core::Failure::Overflow().Text()),
            "\u00DCberlauf: No transaction is active.");
}

}  // namespace
}  // namespace tonalith::app
