#include "desktop/frame/message_box.h"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

const char* const hostile = "<b>部门</b> '; DROP TABLE Plan --";

TEST(MessageBox, ShowsNamesAsTheyAreUnderTheProgramsName) {
  inModal([](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), "辅助核算");
    const auto& label = control<QLabel>(box, "qt_msgbox_label");
    EXPECT_EQ(label.text(), hostile);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    QTest::keyClick(&box, Qt::Key_Return);
  });
  AfxMessageBox(nullptr, hostile);
}

TEST(MessageBox, EscapeAnswersNo) {
  const auto ask = [](Qt::Key key) {
    inModal([key](QWidget& box) { QTest::keyClick(&box, key); });
    return AfxMessageBox(nullptr, Question{"继续吗?"});
  };
  EXPECT_TRUE(ask(Qt::Key_Return));
  EXPECT_FALSE(ask(Qt::Key_Escape));
}

TEST(MessageBox, AsksWithItsOwnCaptionAndAnswers) {
  const auto ask = [](const char* answer) {
    inModal([answer](QWidget& box) {
      EXPECT_EQ(box.windowTitle(), "反两清");
      for (auto* button : box.findChildren<QPushButton*>()) {
        if (button->text() == answer) return QTest::mouseClick(button, Qt::LeftButton);
      }
      ADD_FAILURE() << "no button " << answer;
      QTest::keyClick(&box, Qt::Key_Escape);
    });
    return AfxMessageBox(nullptr, {.text = "往来?", .caption = "反两清", .yes = "全部", .no = "算了"});
  };
  EXPECT_TRUE(ask("全部"));
  EXPECT_FALSE(ask("算了"));
}

}  // namespace
}  // namespace tz::test
