#include "desktop/query/condition_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

QString nameOf(const std::filesystem::path& file) { return QString::fromStdU16String(file.u16string()); }

[[noreturn]] void fail(const QString& what, const QString& file, const QString& why) {
  throw StoreError(fromQt(QStringLiteral("%1：%2（%3）").arg(what, QDir::toNativeSeparators(file), why)));
}

// Everything in the file; nothing when there is no file yet.
QJsonObject readAll(const std::filesystem::path& path) {
  QFile file(nameOf(path));
  if (!file.exists()) return {};
  const QString cannot = QStringLiteral("不能读取保存的条件");
  if (!file.open(QIODevice::ReadOnly)) fail(cannot, file.fileName(), file.errorString());
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(file.readAll(), &error);
  if (error.error != QJsonParseError::NoError) fail(cannot, file.fileName(), error.errorString());
  if (!document.isObject()) fail(cannot, file.fileName(), QStringLiteral("内容不是保存的条件"));
  return document.object();
}

void writeAll(const std::filesystem::path& path, const QJsonObject& all) {
  QSaveFile file(nameOf(path));
  const QString cannot = QStringLiteral("不能保存条件");
  QDir().mkpath(QFileInfo(file.fileName()).path());
  if (!file.open(QIODevice::WriteOnly)) fail(cannot, file.fileName(), file.errorString());
  file.write(QJsonDocument(all).toJson());
  if (!file.commit()) fail(cannot, file.fileName(), file.errorString());
}

// Where the id of a member that was picked from a list stands.
QString idName(const Parameter& condition) { return toQt(condition.savedName()) + QStringLiteral("-id"); }

QJsonObject jsonOf(const Request& request) {
  QJsonObject values;
  for (const auto& [key, value] : request.values()) values.insert(toQt(parameter(key).savedName()), toQt(value));
  for (const auto& [key, id] : request.ids()) values.insert(idName(parameter(key)), QString::number(id));
  return values;
}

Request requestOf(const QJsonObject& values) {
  Request request;
  for (const auto& condition : allParameters()) {
    const auto value = values.constFind(toQt(condition.savedName()));
    if (value == values.constEnd()) continue;
    const Id id = values.value(idName(condition)).toString().toLongLong();
    request.choose(condition.key, {fromQt(value->toString()), id});
  }
  return request;
}

Request requestIn(const QJsonObject& values, const QString& name, const std::filesystem::path& file) {
  try {
    return requestOf(values);
  } catch (const WrongUse& error) {
    fail(QStringLiteral("不能读取保存的条件“%1”").arg(name), nameOf(file), toQt(error.withLabel()));
  }
}

}  // namespace

FileConditionStore::FileConditionStore(std::filesystem::path file, std::string ledger)
    : file_(std::move(file)), lastFile_(file_.parent_path() / "last-conditions.json"), ledger_(std::move(ledger)) {}

std::vector<std::string> FileConditionStore::Names(int report) const {
  std::vector<std::string> names;
  for (const QString& name : readAll(file_).value(QString::number(report)).toObject().keys()) {
    names.push_back(fromQt(name));
  }
  return names;
}

Request FileConditionStore::Load(int report, std::string_view name) const {
  const auto saved = readAll(file_).value(QString::number(report)).toObject();
  const QString wanted = toQt(name);
  if (!saved.contains(wanted))
    fail(QStringLiteral("没有保存的条件“%1”").arg(wanted), nameOf(file_), QStringLiteral("已被删除"));
  return requestIn(saved.value(wanted).toObject(), wanted, file_);
}

void FileConditionStore::Save(int report, std::string_view name, const Request& request) {
  auto all = readAll(file_);
  const QString key = QString::number(report);
  auto saved = all.value(key).toObject();
  saved.insert(toQt(name), jsonOf(request));
  all.insert(key, saved);
  writeAll(file_, all);
}

void FileConditionStore::Remove(int report, std::string_view name) {
  auto all = readAll(file_);
  const QString key = QString::number(report);
  auto saved = all.value(key).toObject();
  saved.remove(toQt(name));
  all.insert(key, saved);
  writeAll(file_, all);
}

std::optional<Request> FileConditionStore::Last(int report) const {
  const auto ofLedger = readAll(lastFile_).value(toQt(ledger_)).toObject();
  const auto last = ofLedger.constFind(QString::number(report));
  if (last == ofLedger.constEnd()) return std::nullopt;
  return requestIn(last->toObject(), QStringLiteral("上次条件"), lastFile_);
}

void FileConditionStore::KeepLast(int report, const Request& request) {
  QJsonObject all;
  try {
    all = readAll(lastFile_);
  } catch (const StoreError&) {
    // Only the last conditions stood there: they begin anew.
  }
  auto ofLedger = all.value(toQt(ledger_)).toObject();
  ofLedger.insert(QString::number(report), jsonOf(request));
  all.insert(toQt(ledger_), ofLedger);
  writeAll(lastFile_, all);
}

}  // namespace tz
