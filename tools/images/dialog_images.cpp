#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <algorithm>
#include <array>
#include <set>

#include "core/catalogue/catalogue.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/query/condition_store.h"
#include "desktop/query/query_dialog.h"
#include "images/images.h"

namespace tz::images {
namespace {

// Condition dialogs that have lists or choices.
constexpr std::array inManual = {541, 559};

Session sessionOver(SampleLedger& ledger) {
  return {.db = ledger.Database(), .ledger = ledger.File(), .logon = g_tmLogonTime};
}

void click(const QWidget& window, const QString& name) {
  if (auto* button = window.findChild<QAbstractButton*>(name)) button->click();
}

Request liMing() {
  Request request;
  request.set(ParameterKey::account, "122101");
  request.set(ParameterKey::dept, "销售部");
  request.set(ParameterKey::person, "李明");
  request.set(ParameterKey::from, "1");
  request.set(ParameterKey::to, "12");
  request.set(ParameterKey::unposted, "1");
  return request;
}

void drawConditions(const PictureBook& book, SampleLedger& ledger) {
  Session session = sessionOver(ledger);
  std::set<int> drawn;
  for (const ReportDefinition* report : catalogue()) {
    const int id = report->dialog.id;
    if (!drawn.insert(id).second) continue;
    if (!book.All() && std::ranges::find(inManual, id) == inManual.end()) continue;
    CTzQueryDialog dialog(report->dialog, session, nullptr);
    book.TakeModal(
        QStringLiteral("conditions-%1").arg(id), [&] { dialog.DoModal(); },
        [](QWidget& window) { click(window, QStringLiteral("unfold")); });
  }
}

// The kinds of conditions that no dialog above has, the bar of saved conditions, and what pops up.
void drawKinds(const PictureBook& book, SampleLedger& ledger) {
  using Kind = ControlSpec::Kind;
  constexpr std::array controls = {
      ControlSpec{.kind = Kind::accountCombo, .key = ParameterKey::account, .id = 2206, .caption = "科目"},
      ControlSpec{
          .kind = Kind::unitReference, .key = ParameterKey::unit, .id = 2115, .companion = 2028, .caption = "单位"},
      ControlSpec{.kind = Kind::projectReference,
                  .key = ParameterKey::project,
                  .id = 2117,
                  .companion = 2015,
                  .caption = "项目"},
      ControlSpec{
          .kind = Kind::amountRange, .key = ParameterKey::minimum, .id = 2113, .companion = 2114, .caption = "余额"},
      ControlSpec{.kind = Kind::side, .key = ParameterKey::side, .id = 2405, .caption = "方向"},
      ControlSpec{
          .kind = Kind::date, .key = ParameterKey::cutoff, .id = 2101, .companion = 2001, .caption = "截止日期"},
      ControlSpec{.kind = Kind::checkBox, .key = ParameterKey::unposted, .id = 2601, .caption = "包含未记帐凭证"},
  };
  const DialogSpec spec{.id = 9999, .title = "条件", .accountWhere = "bEnd <> 0 ORDER BY sCode", .controls = controls};
  Session session = sessionOver(ledger);
  QTemporaryDir folder;
  FileConditionStore store(folder.filePath(QStringLiteral("conditions.json")).toStdString());
  CTzQueryDialog dialog(spec, session, nullptr);
  dialog.OfferSaved(store, 0);
  book.TakeModal(
      QStringLiteral("conditions-kinds"), [&] { dialog.DoModal(); }, {},
      [&](QWidget& window) {
        book.TakePopup(QStringLiteral("calendar"), [&] { click(window, QStringLiteral("2001")); });
        book.TakePopup(QStringLiteral("combo-list"),
                       [&] { window.findChild<CUsefulCombox*>(QStringLiteral("2206"))->showPopup(); });
      });
}

void drawReferences(const PictureBook& book, SampleLedger& ledger) {
  struct Reference {
    int report;
    const char* name;
    const char* button;
  };
  constexpr std::array references = {Reference{10190, "person", "2007"}, Reference{10190, "dept", "2006"},
                                     Reference{10208, "unit", "2028"}, Reference{10221, "item", "2015"}};
  Session session = sessionOver(ledger);
  for (const auto& [report, name, button] : references) {
    CTzQueryDialog dialog(findReport(report)->dialog, session, nullptr);
    if (report == 10190) dialog.SetRequest(liMing());
    book.TakeModal(
        QStringLiteral("conditions-%1").arg(findReport(report)->dialog.id), [&] { dialog.DoModal(); }, {},
        [&](QWidget& window) {
          book.TakeModal(QStringLiteral("reference-") + QLatin1String(name),
                         [&] { click(window, QLatin1String(button)); });
        });
  }
}

void drawMessages(const PictureBook& book) {
  struct Box {
    const char* name;
    const char* text;
    MessageIcon icon;
  };
  constexpr std::array boxes = {
      Box{"short", "非法的部门", MessageIcon::information},
      Box{"long",
          "帐套文件已损坏或不是帐套：/home/zhang/帐套/华源机械制造有限公司2025年度.db。请从备份恢复，或在命令行用 "
          "tzassistant ledger check 查看细节。",
          MessageIcon::warning},
  };
  for (const Box& box : boxes) {
    book.TakeModal(QStringLiteral("message-") + QLatin1String(box.name),
                   [&] { AfxMessageBox(nullptr, box.text, {}, box.icon); });
  }
  book.TakeModal(QStringLiteral("message-question"),
                 [] { AfxMessageBox(nullptr, Question{"“每月往来”已经保存过，换成现在的条件吗？"}); });
}

}  // namespace

void drawDialogs(const PictureBook& book, SampleLedger& ledger) {
  drawConditions(book, ledger);
  drawReferences(book, ledger);
  if (!book.All()) return;
  drawKinds(book, ledger);
  drawMessages(book);
}

}  // namespace tz::images
