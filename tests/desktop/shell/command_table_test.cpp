// The command table and the places of its pictures agree, and every picture can be drawn and read.
#include "desktop/shell/command_table.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "desktop/frame/img_dlg_button.h"
#include "desktop/shell/area_layout.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/picture_icon.h"

namespace tz {
namespace {

constexpr NavigatorArea allAreas[] = {NavigatorArea::archive, NavigatorArea::person,  NavigatorArea::department,
                                      NavigatorArea::plan,    NavigatorArea::project, NavigatorArea::unit};

TEST(CommandTable, EveryCommandHasOnePictureAndOneId) {
  std::map<int, int> pictures;
  for (const NavigatorArea area : allAreas) {
    for (const PicturePlace& picture : picturesOf(area)) ++pictures[picture.command];
  }
  std::set<int> ids;
  std::set<std::string> handlers;
  for (const Command& command : allCommands()) {
    EXPECT_TRUE(ids.insert(command.id).second) << command.id;
    EXPECT_TRUE(handlers.insert(command.handler).second) << command.handler;
    EXPECT_EQ(pictures[command.id], 1) << command.id;
    EXPECT_EQ(findCommand(command.id), &command);
  }
  EXPECT_EQ(ids.size(), pictures.size());
  // With the six areas and the exit, the navigator's ids have no gap.
  for (const AreaPicture& area : areaPictures()) ids.insert(area.command);
  ids.insert(exitPicture(Layout::standard).command);
  EXPECT_EQ(*ids.begin(), 10177);
  EXPECT_EQ(*ids.rbegin(), 10239);
  EXPECT_EQ(ids.size(), 63U);
  EXPECT_EQ(findCommand(10177), nullptr);
}

TEST(CommandTable, RightsGoTogetherWithTheKindOfReport) {
  for (const Command& command : allCommands()) {
    EXPECT_GT(command.right, 0) << command.id;
    EXPECT_EQ(command.opens != Opens::directory, command.window > 0) << command.id;
    EXPECT_EQ(command.opens == Opens::report, command.pointer != Pointer::none) << command.id;
    // Reports that drill-down can reach name themselves to the rights check, the others do not.
    EXPECT_EQ(command.pointer == Pointer::slot, *command.reportName != '\0') << command.id;
  }
  EXPECT_EQ(findCommand(10190)->right, 4);
  EXPECT_EQ(findCommand(10190)->window, 518);
  EXPECT_STREQ(findCommand(10203)->title, "部门管理_科目明细帐");
}

TEST(CommandTable, CaptionsFitTheirPictures) {
  QWidget window;
  const auto expectFit = [&](int bitmap, QRect place, PictureLook look) {
    PictureButton button(bitmap, place, look, &window);
    EXPECT_FALSE(button.text().isEmpty()) << bitmap;
    EXPECT_TRUE(button.CaptionFits()) << bitmap << ' ' << button.text().toStdString();
    button.setChecked(true);
    EXPECT_TRUE(button.CaptionFits()) << bitmap << " when current";
  };
  for (const NavigatorArea area : allAreas) {
    const PictureLook look = standClose(area) ? PictureLook::closeCard : PictureLook::card;
    for (const PicturePlace& picture : picturesOf(area)) expectFit(picture.bitmap, picture.place, look);
  }
  for (const Layout layout : {Layout::standard, Layout::console}) {
    for (const AreaPicture& area : areaPictures()) {
      if (!area.placeIn(layout).isEmpty()) expectFit(area.bitmap, area.placeIn(layout), PictureLook::rail);
    }
    expectFit(exitPicture(layout).bitmap, exitPicture(layout).place, PictureLook::outlined);
  }
}

TEST(CommandTable, PicturesStandInsideTheWindowAndApart) {
  const QRect window(QPoint(0, 0), pictureSize(navigatorGround) + QSize(6, 15));
  for (const NavigatorArea area : allAreas) {
    std::vector<QRect> places;
    for (const AreaPicture& main : areaPictures()) places.push_back(main.standardPlace);
    places.push_back(exitPicture(Layout::standard).place);
    for (const PicturePlace& picture : picturesOf(area)) places.push_back(picture.place);
    for (std::size_t one = 0; one < places.size(); ++one) {
      EXPECT_TRUE(window.contains(places[one]));
      for (std::size_t other = 0; other < one; ++other) EXPECT_FALSE(places[one].intersects(places[other]));
    }
  }
}

TEST(Pictures, EachIdDrawsSomethingInTheColoursAsked) {
  for (const Picture& picture : allPictures()) {
    EXPECT_EQ(findPicture(picture.id), &picture) << "out of order: " << picture.id;
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPicture(painter, picture.id, {0, 0, 64, 64}, {QColor(0xC00000), QColor(0xC00000)});
    painter.end();
    bool drawn = false;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        drawn = drawn || pixel != Qt::white;
        EXPECT_GE(pixel.red(), 0xC0 - 2) << picture.drawing;
      }
    }
    EXPECT_TRUE(drawn) << picture.drawing;
    EXPECT_FALSE(pictureIcon(picture.id).pixmap(24, 24).isNull());
  }
  for (const int toolbar : {280, 300, 301, 303, 305, 306, 307, 308, 316, 320, 322, 404}) {
    EXPECT_NE(findPicture(toolbar), nullptr) << toolbar;
  }
  EXPECT_EQ(findPicture(1416), nullptr);
}

}  // namespace
}  // namespace tz
