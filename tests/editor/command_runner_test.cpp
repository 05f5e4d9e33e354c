// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/command_runner.h"

#include <gtest/gtest.h>

#include "core/failure.h"
#include "data/data_failure.h"
#include "support/recording_msg_box.h"
#include "support/text_message.h"

namespace tonalith::editor {
namespace {

TEST(CommandRunner, IsRunningDuringACommandAndItsMessage) {
  tests::RecordingMsgBox box;
  const CommandRunner runner;
  EXPECT_FALSE(runner.IsRunning());
  EXPECT_TRUE(runner.Run([&] { EXPECT_TRUE(runner.IsRunning()); }, box));
  EXPECT_FALSE(runner.IsRunning());
}

TEST(CommandRunner, StaysRunningAfterAMessageBoxInACommand) {
  tests::RecordingMsgBox box;
  const CommandRunner runner;
  runner.Run(
      [&] {
        { const CommandRunner::Scope question(runner); }
        EXPECT_TRUE(runner.IsRunning());
      },
      box);
  EXPECT_FALSE(runner.IsRunning());
}

TEST(CommandRunner, ShowsTheFailureOfACommandWhileItIsRunning) {
  class Box : public tests::RecordingMsgBox {
   public:
    explicit Box(const CommandRunner& runner) : runner_(runner) {}
    using MsgBox::Show;
    core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle style, const core::Message& title) override {
      EXPECT_TRUE(runner_.IsRunning());
      return RecordingMsgBox::Show(text, style, title);
    }

   private:
    const CommandRunner& runner_;
  };
  const CommandRunner runner;
  Box box(runner);
  EXPECT_FALSE(runner.Run([] { throw core::Failure::Unspecified(tests::TextMessage("no")); }, box));
  EXPECT_EQ(box.Texts(), "no\n");
  EXPECT_FALSE(runner.IsRunning());
}

TEST(CommandRunner, ShowsNoMessageIfTheUserCancels) {
  tests::RecordingMsgBox box;
  EXPECT_FALSE(CommandRunner().Run([] { throw data::Cancelled(); }, box));
  EXPECT_EQ(box.Texts(), "");
}

TEST(CommandRunner, MayBeDestroyedByItsCommand) {
  tests::RecordingMsgBox box;
  auto runner = std::make_unique<CommandRunner>();
  EXPECT_TRUE(runner->Run([&] { runner.reset(); }, box));
}

}  // namespace
}  // namespace tonalith::editor
