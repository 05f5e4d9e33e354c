// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/open_once.h"

#include <gtest/gtest.h>

#include <QTest>
#include <functional>
#include <memory>
#include <stdexcept>

#include "windows/window.h"

namespace tonalith::windows {
namespace {

class Child : public Window<QDialog> {
 public:
  explicit Child(QWidget* owner) : Window(QStringLiteral("frmChild"), owner) { FinishConstruction(); }

  void ShowModal() {
    const QPointer<Child> self(this);
    const auto act = whileShown_;
    show();
    act();
    if (!self.isNull()) hide();
  }

  std::function<void()> whileShown_ = [] {};
  bool mayClose_ = true;

 protected:
  bool Form_QueryUnload() override { return mayClose_; }
};

/// Counts how often a window is raised.
class RaiseCounter : public QObject {
 public:
  explicit RaiseCounter(QWidget& window) { window.installEventFilter(this); }
  [[nodiscard]] int Raised() const { return raised_; }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::ZOrderChange) ++raised_;
    return false;
  }

 private:
  int raised_ = 0;
};

class OpenOnceTest : public testing::Test {
 protected:
  Child* Make() {
    ++made_;
    auto* const child = new Child(owner_.get());
    child->setAttribute(Qt::WA_DeleteOnClose);
    return child;
  }
  Child& Show() {
    place_->Show([this] { return Make(); });
    return *place_->Window();
  }
  /// A modal window is deleted by RunModal.
  QPointer<Child> PutModal() { return place_->Put(new Child(owner_.get())); }
  static void DeleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  std::unique_ptr<QWidget> owner_ = std::make_unique<QWidget>();
  std::unique_ptr<OpenOnce<Child>> place_ = std::make_unique<OpenOnce<Child>>();
  int made_ = 0;
};

TEST_F(OpenOnceTest, ShowsTheWindowAndGivesItTheFocus) {
  EXPECT_EQ(place_->Window(), nullptr);
  EXPECT_FALSE(place_->Raise());
  Child& child = Show();
  EXPECT_TRUE(child.isVisible());
  EXPECT_TRUE(QTest::qWaitForWindowActive(&child));
}

TEST_F(OpenOnceTest, ASecondOpeningRaisesTheOpenWindow) {
  Child& first = Show();
  first.showMinimized();
  Child other(nullptr);
  other.show();
  other.activateWindow();
  const RaiseCounter counter(first);
  EXPECT_EQ(&Show(), &first);
  EXPECT_EQ(counter.Raised(), 1);
  EXPECT_EQ(made_, 1);
  EXPECT_FALSE(first.isMinimized());
  EXPECT_TRUE(QTest::qWaitForWindowActive(&first));
}

TEST_F(OpenOnceTest, AClosedWindowIsReplacedEvenBeforeItIsDeleted) {
  const QPointer<Child> first(&Show());
  first->close();
  ASSERT_FALSE(first.isNull());
  EXPECT_EQ(place_->Window(), nullptr);
  EXPECT_NE(&Show(), first);
  DeleteClosed();
  EXPECT_TRUE(first.isNull());
  EXPECT_TRUE(place_->Window()->isVisible());
}

TEST_F(OpenOnceTest, ARejectedDialogIsReplacedToo) {
  const QPointer<Child> first(&Show());
  QTest::keyClick(first, Qt::Key_Escape);
  ASSERT_FALSE(first.isNull());
  EXPECT_NE(&Show(), first);
}

TEST_F(OpenOnceTest, MakesNoSecondWindowWhileItMakesTheFirst) {
  place_->Show([this] {
    EXPECT_EQ(place_->Window(), nullptr);
    place_->Show([this] { return Make(); });
    return Make();
  });
  EXPECT_EQ(made_, 1);
  EXPECT_TRUE(place_->Window()->isVisible());
}

TEST_F(OpenOnceTest, CanShowAfterAFailureToMakeTheWindow) {
  EXPECT_THROW(place_->Show([]() -> Child* { throw std::runtime_error("no window"); }), std::runtime_error);
  EXPECT_EQ(place_->Window(), nullptr);
  EXPECT_TRUE(Show().isVisible());
}

TEST_F(OpenOnceTest, ClosesTheWindowUnlessItRefuses) {
  EXPECT_TRUE(place_->Close()) << "no window";
  Child& child = Show();
  child.mayClose_ = false;
  EXPECT_FALSE(place_->Close());
  EXPECT_EQ(place_->Window(), &child);
  child.mayClose_ = true;
  EXPECT_TRUE(place_->Close());
  EXPECT_EQ(place_->Window(), nullptr);
  EXPECT_TRUE(place_->Close()) << "closed, but not deleted yet";
}

TEST_F(OpenOnceTest, DeletesTheWindowWithoutAsking) {
  const QPointer<Child> child(&Show());
  child->mayClose_ = false;
  place_->Delete();
  EXPECT_TRUE(child.isNull());
  EXPECT_EQ(place_->Window(), nullptr);
}

TEST_F(OpenOnceTest, DeletesTheWindowWithThePlace) {
  const QPointer<Child> child(&Show());
  place_.reset();
  EXPECT_TRUE(child.isNull());
}

TEST_F(OpenOnceTest, TheWindowIsDestroyedWithItsOwner) {
  Show();
  owner_.reset();
  EXPECT_EQ(place_->Window(), nullptr);
  EXPECT_FALSE(place_->Raise());
}

TEST_F(OpenOnceTest, AClosedOwnerKeepsTheWindowUntilThePlaceClosesIt) {
  owner_->show();
  Child& child = Show();
  owner_->close();
  EXPECT_EQ(place_->Window(), &child);
  EXPECT_TRUE(place_->Close());
}

TEST_F(OpenOnceTest, AModalWindowIsDeletedAtItsEnd) {
  const QPointer<Child> child = PutModal();
  std::string log;
  child->whileShown_ = [&] { log += place_->Raise() ? "raised " : "not open "; };
  RunModal(child, [&](const Child& shown) { log += shown.isVisible() ? "visible " : "hidden "; });
  EXPECT_EQ(log, "raised hidden ");
  EXPECT_TRUE(child.isNull());
}

TEST_F(OpenOnceTest, AHiddenModalWindowIsNotShownAgain) {
  RunModal(PutModal(), [this](const Child& child) {
    EXPECT_TRUE(place_->Raise()) << "it exists until RunModal returns";
    EXPECT_FALSE(child.isVisible());
  });
  EXPECT_FALSE(place_->Raise());
}

TEST_F(OpenOnceTest, AModalWindowMayBeDestroyedWithItsPlaceOrOwner) {
  QPointer<Child> child = PutModal();
  child->whileShown_ = [this] { place_.reset(); };
  RunModal(child, [](const Child&) { FAIL() << "the window is destroyed"; });
  EXPECT_TRUE(child.isNull());

  place_ = std::make_unique<OpenOnce<Child>>();
  child = PutModal();
  child->whileShown_ = [this] { owner_.reset(); };
  RunModal(child, [](const Child&) { FAIL() << "the window is destroyed"; });
  EXPECT_EQ(place_->Window(), nullptr);
}

TEST_F(OpenOnceTest, AModalWindowIsDeletedIfShowingItFails) {
  const QPointer<Child> child = PutModal();
  child->whileShown_ = [] { throw std::runtime_error("no screen"); };
  EXPECT_THROW(RunModal(child, [](const Child&) {}), std::runtime_error);
  EXPECT_TRUE(child.isNull());
}

}  // namespace
}  // namespace tonalith::windows
