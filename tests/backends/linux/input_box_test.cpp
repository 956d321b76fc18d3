// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "linux/linux_runtime.h"

namespace corvane::linux_desktop {
namespace {

class InputBox : public testing::Test {
protected:
    /// What comes of a box in which a person does that.
    std::string Ask(const std::function<void(QInputDialog&)>& act) {
        QTimer::singleShot(0, [&] { act(Box()); });
        return runtime.InputBox("Enter a <b>sentence</b>", "Training");
    }
    static QInputDialog& Box() {
        return dynamic_cast<QInputDialog&>(*QApplication::activeModalWidget());
    }
    static QLineEdit& LineOf(QInputDialog& box) { return *box.findChild<QLineEdit*>(); }

    LinuxRuntime runtime{nullptr};
};

TEST_F(InputBox, EnterGivesWhatWasTyped) {
    EXPECT_EQ(Ask([](QInputDialog& box) {
                  EXPECT_EQ(box.windowTitle(), "Training");
                  EXPECT_EQ(box.findChild<QLabel*>()->text(), "Enter a <b>sentence</b>");
                  EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
                  EXPECT_EQ(LineOf(box).text(), "");
                  LineOf(box).setText("caf\u00E9 at five");
                  QTest::keyClick(&LineOf(box), Qt::Key_Return);
              }),
              "caf\u00E9 at five");
}

TEST_F(InputBox, OkGivesWhatWasTyped) {
    EXPECT_EQ(Ask([](QInputDialog& box) {
                  LineOf(box).setText("one");
                  for (auto* button : box.findChildren<QPushButton*>())
                      if (button->isDefault()) QTest::mouseClick(button, Qt::LeftButton);
              }),
              "one");
}

TEST_F(InputBox, EscapeAndTheFrameGiveNothing) {
    EXPECT_EQ(Ask([](QInputDialog& box) {
                  LineOf(box).setText("one");
                  QTest::keyClick(&LineOf(box), Qt::Key_Escape);
              }),
              "");
    EXPECT_EQ(Ask([](QInputDialog& box) {
                  LineOf(box).setText("one");
                  box.close();
              }),
              "");
}

TEST_F(InputBox, AnotherMayOpenWhileOneStands) {
    std::string inner;
    EXPECT_EQ(Ask([&](QInputDialog& outer) {
                  inner = Ask([](QInputDialog& box) {
                      box.setTextValue("inner");
                      box.accept();
                  });
                  outer.setTextValue("outer");
                  outer.accept();
              }),
              "outer");
    EXPECT_EQ(inner, "inner");
}

}  // namespace
}  // namespace corvane::linux_desktop
