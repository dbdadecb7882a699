// Commands, reports and the places of their pictures agree, and every picture can be drawn and read.
#include "desktop/shell/command_table.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <map>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/img_dlg_button.h"
#include "desktop/report/window_commands.h"
#include "desktop/shell/area_layout.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/picture_icon.h"

namespace tz {
namespace {

constexpr NavigatorArea allAreas[] = {NavigatorArea::archive, NavigatorArea::person,  NavigatorArea::department,
                                      NavigatorArea::plan,    NavigatorArea::project, NavigatorArea::unit};

TEST(CommandTable, TheNavigatorsIdsAreEachGivenOnceAndHaveNoGap) {
  std::vector<int> ids;
  for (const NavigatorArea area : allAreas) {
    for (const Command& command : commandsOf(area)) {
      ids.push_back(command.id);
      EXPECT_EQ(findCommand(command.id), &command);
    }
  }
  for (const AreaPicture& area : areaPictures()) {
    ids.push_back(area.command);
    EXPECT_EQ(findCommand(area.command), nullptr);
  }
  ids.push_back(exitPicture(Layout::standard).command);
  std::ranges::sort(ids);
  for (std::size_t i = 1; i < ids.size(); ++i) EXPECT_EQ(ids[i], ids[i - 1] + 1);
}

TEST(CommandTable, EveryReportStandsInItsArea) {
  const std::map<Area, NavigatorArea> areas = {{Area::person, NavigatorArea::person},
                                               {Area::department, NavigatorArea::department},
                                               {Area::plan, NavigatorArea::plan},
                                               {Area::project, NavigatorArea::project},
                                               {Area::unit, NavigatorArea::unit}};
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->command);
    const Command* command = findCommand(report->command);
    ASSERT_NE(command, nullptr);
    EXPECT_TRUE(command->opens == Opens::report || command->opens == Opens::reportAlone);
    const auto ofArea = commandsOf(areas.at(report->area));
    EXPECT_TRUE(command >= ofArea.data() && command < ofArea.data() + ofArea.size());
    EXPECT_GT(report->right, 0);
  }
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
    for (const Command& command : commandsOf(area)) expectFit(command.bitmap, command.place, look);
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
    for (const Command& command : commandsOf(area)) places.push_back(command.place);
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
  for (const ReportCommand& command : reportCommands()) EXPECT_FALSE(command.Caption().isEmpty()) << command.bitmap;
  EXPECT_EQ(findPicture(1416), nullptr);
}

}  // namespace
}  // namespace tz
