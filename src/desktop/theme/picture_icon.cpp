#include "desktop/theme/picture_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include "desktop/res/pictures.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

class PictureIconEngine : public QIconEngine {
 public:
  explicit PictureIconEngine(int id) : id_(id) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const Theme& theme = currentTheme();
    const bool disabled = mode == QIcon::Disabled;
    paintPicture(*painter, id_, rect,
                 {disabled ? theme.disabledText : theme.text, disabled ? theme.rule : theme.accent});
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new PictureIconEngine(id_); }

 private:
  int id_;
};

}  // namespace

QIcon pictureIcon(int id) { return QIcon(new PictureIconEngine(id)); }

}  // namespace tz
