#include "desktop/host/server_address.h"

#include <QStringList>
#include <QUrl>

#include "core/data/connection.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

QString encoded(const QString& part, const QByteArray& plain = {}) {
  return QString::fromLatin1(QUrl::toPercentEncoding(part, plain));
}

QString decoded(const QString& part) { return QUrl::fromPercentEncoding(part.toUtf8()); }

// "server:5432" or "[::1]:5432"; several servers stay one text.
void readHost(const QString& text, ServerAddress& address) {
  const qsizetype bracket = text.lastIndexOf(QLatin1Char(']'));
  const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
  const bool several = text.contains(QLatin1Char(','));
  if (several || colon <= bracket) {
    address.host = decoded(text);
    return;
  }
  address.host = decoded(text.left(colon));
  address.port = decoded(text.mid(colon + 1));
}

// What the fields hold leaves the parameters.
void readParameters(const QString& text, ServerAddress& address) {
  QStringList kept;
  for (const QString& parameter : text.split(QLatin1Char('&'), Qt::SkipEmptyParts)) {
    const QString name = parameter.section(QLatin1Char('='), 0, 0);
    const QString value = decoded(parameter.section(QLatin1Char('='), 1));
    QString* field = name == QLatin1String("host")       ? &address.host
                     : name == QLatin1String("port")     ? &address.port
                     : name == QLatin1String("dbname")   ? &address.database
                     : name == QLatin1String("user")     ? &address.user
                     : name == QLatin1String("password") ? &address.password
                                                         : nullptr;
    if (field == nullptr) {
      kept.append(parameter);
    } else {
      *field = value;
    }
  }
  address.parameters = kept.join(QLatin1Char('&'));
}

}  // namespace

QString ServerAddress::Text(bool withPassword) const {
  QString text = QStringLiteral("postgresql://");
  const bool tellPassword = withPassword && !password.isEmpty();
  if (!user.isEmpty() || tellPassword) {
    text += encoded(user);
    if (tellPassword) text += QLatin1Char(':') + encoded(password);
    text += QLatin1Char('@');
  }
  text += encoded(host, "[]:,");
  if (!port.isEmpty()) text += QLatin1Char(':') + encoded(port);
  text += QLatin1Char('/') + encoded(database);
  if (!parameters.isEmpty()) text += QLatin1Char('?') + parameters;
  return text;
}

std::optional<ServerAddress> readServerAddress(const QString& text) {
  if (!isServerAddress(fromQt(text))) return std::nullopt;
  QString rest = text.section(QLatin1Char(':'), 1);
  while (rest.startsWith(QLatin1Char('/'))) rest.remove(0, 1);
  ServerAddress address;
  // The last "@" before the parameters: whatever stands before it may be a password that nobody has encoded.
  const qsizetype firstQuestion = rest.indexOf(QLatin1Char('?'));
  qsizetype at = rest.lastIndexOf(QLatin1Char('@'), firstQuestion);
  if (at < 0) at = rest.lastIndexOf(QLatin1Char('@'));
  const bool inParameters =
      firstQuestion >= 0 && at > firstQuestion && rest.mid(firstQuestion, at - firstQuestion).contains('=');
  if (at >= 0 && !inParameters) {
    const QString who = rest.left(at);
    const qsizetype colon = who.indexOf(QLatin1Char(':'));
    address.user = decoded(colon < 0 ? who : who.left(colon));
    if (colon >= 0) address.password = decoded(who.mid(colon + 1));
    rest.remove(0, at + 1);
  }
  const qsizetype question = rest.indexOf(QLatin1Char('?'));
  const QString parameters = question < 0 ? QString() : rest.mid(question + 1);
  if (question >= 0) rest.truncate(question);
  const qsizetype slash = rest.indexOf(QLatin1Char('/'));
  readHost(slash < 0 ? rest : rest.left(slash), address);
  if (slash >= 0) address.database = decoded(rest.mid(slash + 1));
  readParameters(parameters, address);
  return address;
}

}  // namespace tz
