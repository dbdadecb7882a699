#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <stdexcept>

#include "images/images.h"

namespace tz::images {
namespace {

template <class Control, class... Words>
Control* place(QGridLayout& layout, int row, int column, const Words&... words) {
  auto* control = new Control(words...);
  layout.addWidget(control, row, column);
  return control;
}

void addButtons(QGridLayout& layout, int row) {
  auto* accepting = place<QPushButton>(layout, row, 0, QStringLiteral("确定"));
  accepting->setDefault(true);
  place<QPushButton>(layout, row, 1, QStringLiteral("取消"))->setDown(true);
  place<QPushButton>(layout, row, 2, QStringLiteral("悬停"))->setAttribute(Qt::WA_UnderMouse);
  place<QPushButton>(layout, row, 3, QStringLiteral("不可用"))->setEnabled(false);
  place<QPushButton>(layout, row, 4, QStringLiteral("焦点"))->setObjectName(QStringLiteral("focused"));
}

void addMarks(QGridLayout& layout, int row) {
  place<QCheckBox>(layout, row, 0, QStringLiteral("未选"));
  place<QCheckBox>(layout, row, 1, QStringLiteral("已选"))->setChecked(true);
  auto* some = place<QCheckBox>(layout, row, 2, QStringLiteral("部分"));
  some->setTristate(true);
  some->setCheckState(Qt::PartiallyChecked);
  auto* pale = place<QCheckBox>(layout, row, 3, QStringLiteral("不可用"));
  pale->setChecked(true);
  pale->setEnabled(false);
  place<QRadioButton>(layout, row, 4, QStringLiteral("单选"))->setChecked(true);
}

void addFields(QGridLayout& layout, int row) {
  place<QComboBox>(layout, row, 0)->addItem(QStringLiteral("组合框"));
  auto* pale = place<QComboBox>(layout, row, 1);
  pale->addItem(QStringLiteral("不可用"));
  pale->setEnabled(false);
  place<QLineEdit>(layout, row, 2, QStringLiteral("文字"));
  place<QLineEdit>(layout, row, 3, QStringLiteral("不可用"))->setEnabled(false);
  auto* number = place<QSpinBox>(layout, row, 4);
  number->setValue(number->maximum());
}

void addBars(QGridLayout& layout, int row) {
  auto* group = place<QGroupBox>(layout, row, 0, QStringLiteral("分组"));
  auto* inside = new QGridLayout(group);
  inside->addWidget(new QLabel(QStringLiteral("&标签")), 0, 0);
  auto* list = place<QListWidget>(layout, row, 1);
  list->addItems({QStringLiteral("第一"), QStringLiteral("第二"), QStringLiteral("第三")});
  list->setCurrentRow(1);
  list->setFixedHeight(80);
  auto* bar = place<QScrollBar>(layout, row, 2, Qt::Horizontal);
  bar->setRange(0, 100);
  bar->setValue(30);
  place<QProgressBar>(layout, row, 3)->setValue(60);
  auto* menu = place<QToolButton>(layout, row, 4);
  menu->setText(QStringLiteral("菜单"));
  menu->setArrowType(Qt::DownArrow);
  menu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

}  // namespace

// Each kind of control in each of its states, side by side.
void drawControls(const PictureBook& book) {
  QDialog window;
  auto* layout = new QGridLayout(&window);
  addButtons(*layout, 0);
  addMarks(*layout, 1);
  addFields(*layout, 2);
  addBars(*layout, 3);
  window.resize(640, 260);
  window.show();
  if (!QTest::qWaitForWindowActive(&window)) throw std::runtime_error("the controls do not become active");
  // Enter would press the button with the focus: that is the default one meanwhile.
  book.Take(window, QStringLiteral("controls-first"));
  window.findChild<QPushButton*>(QStringLiteral("focused"))->setFocus(Qt::TabFocusReason);
  book.Take(window, QStringLiteral("controls"));
}

}  // namespace tz::images
