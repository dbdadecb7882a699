#include "desktop/shell/navigator.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "desktop/frame/globals.h"
#include "desktop/shell/command_table.h"
#include "desktop/shell/launch_window_list.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int navigatorTemplate = 1170;
constexpr unsigned helpContext = 0x30498;
constexpr int markBitmap = 1376;
constexpr double cardRadius = 12;
constexpr double bandWidth = 49;

// The cards that the pictures stand on.
QRectF railOf(Layout layout) { return {19, 19, layout == Layout::console ? 211.0 : 122.0, 346}; }
QRectF cardOf(Layout layout) {
  return layout == Layout::console ? QRectF(243, 19, 344, 346) : QRectF(154, 19, 433, 346);
}

RCII imageOf(int command, int bitmap, QRect place) {
  RCII image;
  image.command = command + RCII::commandBase;
  image.left = place.left();
  image.top = place.top();
  image.width = place.width();
  image.height = place.height();
  image.visible = 1;
  image.text = "";
  image.enabled = 1;
  image.bitmap = bitmap;
  image.style = 6;
  return image;
}

}  // namespace

CQnCwAssistantDlg::CQnCwAssistantDlg(QWidget* parent)
    : CImgDlg(navigatorTemplate, parent), CProcess(nullptr), layout_(layoutFor(g_lpArgument)) {
  g_pDlgWnd = this;
}

CQnCwAssistantDlg::~CQnCwAssistantDlg() {
  if (g_pDlgWnd == this) g_pDlgWnd = nullptr;
}

void CQnCwAssistantDlg::SetRunner(CommandRunner runner) {
  runner_ = std::move(runner);
  OpenArea(area_);
}

void CQnCwAssistantDlg::RefreshDisplay() {
  show();
  bringToFront(this);
}

bool CQnCwAssistantDlg::OnInitDialog() {
  CImgDlg::OnInitDialog();
  SetLayoutSize(pictureSize(navigatorGround) + QSize(6, 15));
  setWindowTitle(QStringLiteral("辅助核算"));
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
  InitAssistantWnd();
  if (layout_ == Layout::console) {
    OnTzAssistantPerson();
  } else {
    OnTzAssistantArchive();
  }
  ButtonOf(pictureOf(area_).command)->setFocus(Qt::OtherFocusReason);
  return true;
}

void CQnCwAssistantDlg::InitAssistantWnd() {
  for (const AreaPicture& area : areaPictures()) {
    const QRect place = area.placeIn(layout_);
    if (!place.isEmpty()) InsertCmdImage(imageOf(area.command, area.bitmap, place));
  }
  const ExitPicture exit = exitPicture(layout_);
  InsertCmdImage(imageOf(exit.command, exit.bitmap, exit.place), PictureLook::outlined);
}

void CQnCwAssistantDlg::ClearAssistant() {
  InsertSubImage(RCII{});
  update();
}

void CQnCwAssistantDlg::InitArea(NavigatorArea area) {
  const PictureLook look = standClose(area) ? PictureLook::closeCard : PictureLook::card;
  for (const Command& command : commandsOf(area)) {
    RCII image = imageOf(command.id, command.bitmap, command.place);
    const QByteArray obstacle = ObstacleOf(command.id).toUtf8();
    if (!obstacle.isEmpty()) {
      image.enabled = 0;
      image.text = obstacle.constData();
    }
    InsertSubImage(image, look);
  }
}

void CQnCwAssistantDlg::ShowAvailable() {
  const QWidget* focused = focusWidget();
  const QString standing = focused == nullptr ? QString() : focused->objectName();
  ClearAssistant();
  InitArea(area_);
  auto* again = standing.isEmpty() ? nullptr : findChild<QWidget*>(standing);
  if (again != nullptr) again->setFocus();
}

QString CQnCwAssistantDlg::ObstacleOf(int command) const {
  return runner_.obstacle ? runner_.obstacle(command) : QStringLiteral("该功能尚未提供");
}

void CQnCwAssistantDlg::OpenArea(NavigatorArea area) {
  ClearAssistant();
  area_ = area;
  InitArea(area);
  SetCurrentCommand(pictureOf(area).command);
}

void CQnCwAssistantDlg::OnTzAssistantExit() {
  if (MayLeave()) EndDialog(Accepted);
}

void CQnCwAssistantDlg::OnHelpInfo() {
  if (runner_.help) runner_.help(helpContext);
}

void CQnCwAssistantDlg::OnCommand(int id) {
  if (id == exitPicture(layout_).command) {
    OnTzAssistantExit();
    return;
  }
  for (const AreaPicture& area : areaPictures()) {
    if (area.command == id) {
      OpenArea(area.area);
      return;
    }
  }
  if (ObstacleOf(id).isEmpty()) runner_.run(id);
}

void CQnCwAssistantDlg::closeEvent(QCloseEvent* event) {
  const bool leaves = MayLeave();
  event->setAccepted(leaves);
  if (leaves) EndDialog(Rejected);
}

void CQnCwAssistantDlg::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme& theme = currentTheme();
  painter.fillRect(rect(), theme.ground);
  painter.translate(Origin());
  painter.scale(Scale(), Scale());
  const QSizeF ground = pictureSize(navigatorGround);
  paintPicture(painter, navigatorGround, QRectF(QPointF(0, 0), ground), {theme.text, theme.accent});
  PaintRail(painter);
  PaintCard(painter);
}

void CQnCwAssistantDlg::PaintRail(QPainter& painter) const {
  const Theme& theme = currentTheme();
  const QRectF rail = railOf(layout_);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.rail);
  painter.drawRoundedRect(rail, cardRadius, cardRadius);

  // The console's areas stand further right: the room beside them becomes a band of its own for the mark.
  const bool console = layout_ == Layout::console;
  QRectF mark(30, 38, 26, 26);
  if (console) {
    mark.moveLeft(bandWidth / 2 + rail.left() - mark.width() / 2);
    painter.setClipRect(QRectF(rail.topLeft(), QSizeF(bandWidth, rail.height())));
    painter.setBrush(theme.railBand);
    painter.drawRoundedRect(rail, cardRadius, cardRadius);
    painter.setClipping(false);
  }
  painter.setBrush(theme.railSelected);
  painter.drawRoundedRect(mark, 7, 7);
  paintPicture(painter, markBitmap, mark.adjusted(5, 5, -5, -5), {theme.onRailSelected, theme.onRailSelected});
  const double left = console ? pictureOf(NavigatorArea::person).consolePlace.left() + 10 : mark.right() + 8;
  painter.setFont(uiFont(16, QFont::DemiBold));
  painter.setPen(theme.onRailSelected);
  painter.drawText(QRectF(left, mark.top(), 80, mark.height()), Qt::AlignVCenter, windowTitle());
}

void CQnCwAssistantDlg::PaintCard(QPainter& painter) const {
  const Theme& theme = currentTheme();
  const QRectF card = cardOf(layout_);
  painter.setPen(QPen(theme.rule, 1));
  painter.setBrush(theme.surface);
  painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), cardRadius, cardRadius);

  const AreaPicture& area = pictureOf(area_);
  const bool console = layout_ == Layout::console;
  const QRectF tile = console ? QRectF(269, 32, 40, 40) : QRectF(174, 36, 72, 72);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.accentSoft);
  painter.drawRoundedRect(tile, cardRadius, cardRadius);
  QRect pictures;
  for (const Command& command : commandsOf(area_)) pictures |= command.place;
  painter.setBrush(theme.header);
  painter.drawRoundedRect(pictures.adjusted(-10, -6, 10, 7), 8, 8);
  const double inset = tile.width() * 0.25;
  paintPicture(painter, area.bitmap, tile.adjusted(inset, inset, -inset, -inset), {theme.accent, theme.accent});

  const double left = console ? tile.right() + 12 : 272;
  painter.setPen(theme.text);
  painter.setFont(uiFont(17, QFont::DemiBold));
  painter.drawText(QRectF(left, 30, 300, 24), Qt::AlignVCenter, QString::fromUtf8(findPicture(area.bitmap)->caption));
  painter.setPen(theme.mutedText);
  painter.setFont(uiFont(12));
  painter.drawText(QRectF(left, 54, 300, 20), Qt::AlignVCenter, QString::fromUtf8(area.hint));
}

}  // namespace tz
