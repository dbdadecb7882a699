#include "desktop/frame/message_box.h"

#include <QLabel>
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
  EXPECT_TRUE(AfxMessageBox(nullptr, hostile));
}

TEST(MessageBox, EscapeAnswersNo) {
  const auto ask = [](Qt::Key key) {
    inModal([key](QWidget& box) { QTest::keyClick(&box, key); });
    return AfxMessageBox(nullptr, "继续吗?", "标题", MessageIcon::information, MessageButtons::yesNo);
  };
  EXPECT_TRUE(ask(Qt::Key_Return));
  EXPECT_FALSE(ask(Qt::Key_Escape));
}

}  // namespace
}  // namespace tz::test
