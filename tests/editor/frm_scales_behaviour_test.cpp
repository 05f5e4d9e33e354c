// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Behaviour of the editor that docs/behaviour.md fixes and no other test asserts: the names of its controls, the order
// of SetAllControls, and unused controls.

#include <gtest/gtest.h>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

using KeptBehaviour = ScaleEditorTest;

TEST_F(KeptBehaviour, EditorHasEveryControlUnderItsName) {
  Open();
  EXPECT_EQ(Form().objectName().toStdString(), "frmScales");
  EXPECT_EQ(Form().windowTitle().toStdString(), "Scales");
  std::vector<QString> names = {QStringLiteral("datPrimaryRS"),  QStringLiteral("chkFields(6)"),
                                QStringLiteral("txtScaleType"),  QStringLiteral("txtIntervals"),
                                QStringLiteral("txtNotesToUse"), QStringLiteral("txtScaleIntervalTones"),
                                QStringLiteral("Combo1"),        QStringLiteral("picButtons")};
  for (int i = 0; i < 12; ++i) names.push_back(QStringLiteral("note%1").arg(i));
  for (const int i : {0, 1, 2, 3, 4, 5, 7}) names.push_back(QStringLiteral("txtFields(%1)").arg(i));
  for (int i = 0; i < 8; ++i) names.push_back(QStringLiteral("lblLabels(%1)").arg(i));
  for (const QString& name : names) EXPECT_NE(Form().findChild<QWidget*>(name), nullptr) << name.toStdString();
  EXPECT_EQ(Form().findChild<QWidget*>(QStringLiteral("txtFields(6)")), nullptr) << "chkFields(6) has its index";
}

TEST_F(KeptBehaviour, ChordRawPatternAndNotesToUseAreNeverShown) {
  Open();
  for (int mode = 0; mode < 2; ++mode) {
    EXPECT_FALSE(C().chkFields->isVisible());
    EXPECT_FALSE(C().txtFields[4].box->isVisible());
    EXPECT_FALSE(C().txtNotesToUse->isVisible());
    Press(C().cmdModify);
  }
}

TEST_F(KeptBehaviour, SetAllControlsSwitchesTheControlsBeforeItSaves) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Natural Minor");
  bool wasAsked = false;
  box_.WhileShown([&] {
    wasAsked = true;
    EXPECT_FALSE(C().Note(0)->isEnabled());
    EXPECT_FALSE(C().picButtons->isVisible());
    EXPECT_FALSE(C().picButtons->isEnabled());
  });
  bool isModified = false;
  EXPECT_FALSE(Form().SetAllControls(isModified));
  EXPECT_EQ(Messages(), "There is a scale of this name already.\n");
  EXPECT_TRUE(wasAsked) << "a name that is taken cannot be saved";
}

}  // namespace
}  // namespace tonalith::editor
